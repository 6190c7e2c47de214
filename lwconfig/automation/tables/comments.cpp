#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {
namespace {

constexpr std::array kNoWrapType{0};

}  // namespace

template <>
const ClassInfo& ClassOf<TaggedCommentDef>() {
  using I = Interface<TaggedCommentDef>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&TaggedCommentDef::TagIdentifier>(
          "TagIdentifier", {.Attribute = "Identifier", .IsKey = true}),
      I::Property<&TaggedCommentDef::ElementType>("ElementType"),
      I::Property<&TaggedCommentDef::Description>("Description"),
      I::Property<&TaggedCommentDef::Format>("Format"),
      I::Property<&TaggedCommentDef::IsGeneral>("IsGeneral"),
      I::Property<&TaggedCommentDef::WrapType>("WrapType", {.MoreNumbers = kNoWrapType}),
      I::Property<&TaggedCommentDef::DesignerProgID>("DesignerProgID"),
      I::Property<&TaggedCommentDef::DesignFlags>("DesignFlags"),
      I::Property<&TaggedCommentDef::Hidden>("Hidden"),
      I::Property<&TaggedCommentDef::LegacyFor>("LegacyFor", {.Names = NameOf::Comment}),
      I::Property<&TaggedCommentDef::TabName>("TabName"),
      I::Property<&TaggedCommentDef::Tip>("Tip"),
      I::Property<&TaggedCommentDef::Flags>("Flags"),
      I::Property<&TaggedCommentDef::Standard>("Standard"),
      I::Property<&TaggedCommentDef::Namespace>("Namespace", {.Names = NameOf::CodeElements}),
      I::Property<&TaggedCommentDef::Icon>("Icon"),
      I::Property<&TaggedCommentDef::GroupName>("GroupName"),
      I::Property<&TaggedCommentDef::XMLCommentTypes>("XMLCommentTypes", {.Names = NameOf::Words}),
      I::Method<&TaggedCommentDef::Load>("Load", "e"),
      I::Method<&TaggedCommentDef::Save>("Save", "e"),
      I::Method<&TaggedCommentDef::Clone>("Clone"));
  static const ClassInfo info = I::Class("TaggedCommentDef", kSlots, {.Element = "TaggedComment"});
  return info;
}

template <>
const ClassInfo& ClassOf<TaggedCommentDefs>() {
  using I = Interface<TaggedCommentDefs>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&TaggedCommentDefs::DefaultDesignerProgID>("DefaultDesignerProgID"),
      I::Property<&TaggedCommentDefs::FileName>("FileName"),
      I::Property<&TaggedCommentDefs::IsPopulated>("IsPopulated"),
      I::CollectionMembers("obj"),
      I::Method<&TaggedCommentDefs::Load>("Load"),
      I::Method<&TaggedCommentDefs::Save>("Save"),
      I::Method<&TaggedCommentDefs::SaveEx>("SaveEx", "IncludeStandard", "IncludeCustom"),
      I::Method<&TaggedCommentDefs::LoadFrom>("LoadFrom", "FileName"),
      I::Method<&TaggedCommentDefs::SaveTo>("SaveTo", "FileName"),
      I::Method<&TaggedCommentDefs::SaveToEx>("SaveToEx", "FileName", "IncludeStandard", "IncludeCustom"),
      I::Method<&TaggedCommentDefs::Clone>("Clone"),
      I::MayBeNull(I::Method<&TaggedCommentDefs::ItemFromXMLTagName>("ItemFromXMLTagName", "XMLTagName")));
  static const ClassInfo info = I::Class("TaggedCommentDefs", kSlots, {.Saving = Saving::ByItself});
  return info;
}

template <>
const ClassInfo& ClassOf<ModelComment>() {
  using I = Interface<ModelComment>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&ModelComment::MemberType_Namespace>(
          "MemberType_Namespace", {.Names = NameOf::CodeElements}),
      I::Property<&ModelComment::MemberName>("MemberName"),
      I::Property<&ModelComment::TaggedCommentPrefix>("TaggedCommentPrefix", {.Names = NameOf::Comment}),
      I::Property<&ModelComment::TaggedCommentText>("TaggedCommentText"),
      I::Property<&ModelComment::Tag>("Tag"),
      I::SetVariant<&ModelComment::Tag>("Tag"),
      I::Property<&ModelComment::OnlyIfBlank>("OnlyIfBlank"),
      I::Property<&ModelComment::InsertionPoint>("InsertionPoint"),
      I::Enumerated<mcMemberTypeEnum, ElementTypeEnum>(
          I::Property<&ModelComment::MemberType, &ModelComment::SetMemberType>("MemberType")),
      I::Method<&ModelComment::Save>("Save", "e"),
      I::Method<&ModelComment::Load>("Load", "e"),
      I::Method<&ModelComment::Clone>("Clone"));
  static const ClassInfo info = I::Class("ModelComment", kSlots, {.Element = "MC"});
  return info;
}

template <>
const ClassInfo& ClassOf<ModelComments>() {
  using I = Interface<ModelComments>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&ModelComments::NamespaceProfile>(
          "NamespaceProfile", {.Attribute = "Namespace", .Names = NameOf::Profile}),
      I::Property<&ModelComments::FileName>("FileName"),
      I::Property<&ModelComments::Name>("Name", {.IsKey = true}),
      I::Property<&ModelComments::Description>("Description"),
      I::Property<&ModelComments::IsPopulated>("IsPopulated"),
      I::Property<&ModelComments::Dirty, &ModelComments::SetDirty>("Dirty"),
      I::MayBeNull(I::Get<&ModelComments::NamespaceDefs>("NamespaceDefs")),
      I::CollectionMembers("obj"),
      I::Method<&ModelComments::Save>("Save", "e"),
      I::Method<&ModelComments::Load>("Load", "e"),
      I::Method<&ModelComments::Clone>("Clone"),
      I::Method<&ModelComments::LoadGlobal>("LoadGlobal"),
      I::Method<&ModelComments::SaveToGlobal>("SaveToGlobal"),
      I::Method<&ModelComments::LoadFromFile>("LoadFromFile", "FileName"),
      I::Method<&ModelComments::SaveToFile>("SaveToFile", "FileName"));
  static constexpr std::array kEvents{I::Event<&ModelComments::DirtyStateChanged>("DirtyStateChanged")};
  static const ClassInfo info =
      I::Class("ModelComments", kSlots, {.Events = kEvents, .Element = "ModelCommentProfile"});
  return info;
}

template <>
const ClassInfo& ClassOf<ModelCommentProfiles>() {
  using I = Interface<ModelCommentProfiles>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&ModelCommentProfiles::Dirty>("Dirty"),
      I::CollectionMembers("obj"),
      I::Method<&ModelCommentProfiles::Load>("Load"),
      I::Method<&ModelCommentProfiles::Save>("Save"),
      I::Method<&ModelCommentProfiles::Clone>("Clone"));
  static const ClassInfo info =
      I::Class("ModelCommentProfiles", kSlots, {.Saving = Saving::ByItself, .ItemStorage = "file"});
  return info;
}

template <>
const ClassInfo& ClassOf<CommentFileLocation>() {
  using I = Interface<CommentFileLocation>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&CommentFileLocation::AssemblyFileName>("AssemblyFileName"),
      I::Property<&CommentFileLocation::CommentFilePath, &CommentFileLocation::SetCommentFilePath>(
          "CommentFilePath"),
      I::Get<&CommentFileLocation::InternalCommentFilePath>("InternalCommentFilePath"),
      I::Method<&CommentFileLocation::Load>("Load", "e"),
      I::Method<&CommentFileLocation::Save>("Save", "e"),
      I::Method<&CommentFileLocation::Clone>("Clone"));
  static const ClassInfo info = I::Class("CommentFileLocation", kSlots, {.Element = "CommentFile"});
  return info;
}

template <>
const ClassInfo& ClassOf<CommentFileLocations>() {
  using I = Interface<CommentFileLocations>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&CommentFileLocations::Dirty>("Dirty"),
      I::CollectionMembers("Item"),
      I::Method<&CommentFileLocations::Load>("Load"),
      I::Method<&CommentFileLocations::Save>("Save"),
      I::Method<&CommentFileLocations::Clone>("Clone"));
  static const ClassInfo info = I::Class("CommentFileLocations", kSlots, {.Saving = Saving::ByItself});
  return info;
}

template <>
const EnumInfo& EnumOf<ElementTypeEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"etUnspecified", etUnspecified},
      EnumMember{"etProjectGroup", etProjectGroup},
      EnumMember{"etProject", etProject},
      EnumMember{"etModule", etModule},
      EnumMember{"etBlock", etBlock},
      EnumMember{"etVariable", etVariable},
      EnumMember{"etParameter", etParameter},
      EnumMember{"etEvent", etEvent},
      EnumMember{"etEnumeration", etEnumeration},
      EnumMember{"etEnumerationMember", etEnumerationMember},
      EnumMember{"etUDT", etUDT},
      EnumMember{"etUDTMember", etUDTMember},
      EnumMember{"etDeclaration", etDeclaration},
      EnumMember{"etInterface", etInterface}};
  static constexpr EnumInfo info{"ElementTypeEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<WrapTypeEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"WrapNone", WrapNone},
      EnumMember{"WrapBreak", WrapBreak},
      EnumMember{"WrapParagraph", WrapParagraph}};
  static constexpr EnumInfo info{"WrapTypeEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<mcInsertionPointEnum>() {
  static constexpr std::array kMembers{EnumMember{"ctPrefix", ctPrefix}, EnumMember{"ctSuffix", ctSuffix}};
  static constexpr EnumInfo info{"mcInsertionPointEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<mcMemberTypeEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"mtMethod", mtMethod},
      EnumMember{"mtProperty", mtProperty},
      EnumMember{"mtEvent", mtEvent},
      EnumMember{"mtEnumeration", mtEnumeration},
      EnumMember{"mtUDT", mtUDT},
      EnumMember{"mtInterface", mtInterface},
      EnumMember{"mtModule", mtModule}};
  static constexpr EnumInfo info{"mcMemberTypeEnum", kMembers};
  return info;
}

}  // namespace lwconfig::automation
