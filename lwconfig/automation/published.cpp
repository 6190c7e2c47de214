#include <algorithm>
#include <array>

#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig::automation {
namespace {

template <class Info>
const Info* FindByName(std::span<const Info* const> all, std::string_view name,
                       const char* (*nameOf)(const Info&)) {
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Info* info) { return EqualIgnoringCase(nameOf(*info), name); });
  return found == all.end() ? nullptr : *found;
}

}  // namespace

std::span<const ClassInfo* const> PublishedClasses() {
  static const std::array all{&ClassOf<Root>(),
                              &ClassOf<PageTemplates>(),
                              &ClassOf<PageTemplate>(),
                              &ClassOf<PageLayouts>(),
                              &ClassOf<PageLayout>(),
                              &ClassOf<TOCDefinitions>(),
                              &ClassOf<TOCDefinition>(),
                              &ClassOf<NodeDefs>(),
                              &ClassOf<NodeDef>(),
                              &ClassOf<VariableDefs>(),
                              &ClassOf<VariableDef>(),
                              &ClassOf<TaggedCommentDefs>(),
                              &ClassOf<TaggedCommentDef>(),
                              &ClassOf<ModelCommentProfiles>(),
                              &ClassOf<ModelComments>(),
                              &ClassOf<ModelComment>(),
                              &ClassOf<CommentFileLocations>(),
                              &ClassOf<CommentFileLocation>(),
                              &ClassOf<Languages>(),
                              &ClassOf<Language>(),
                              &ClassOf<NamespaceProfiles>(),
                              &ClassOf<NamespaceDefs>(),
                              &ClassOf<NamespaceDef>(),
                              &ClassOf<ElementDefs>(),
                              &ClassOf<ElementDef>(),
                              &ClassOf<ElementAttributeDefs>(),
                              &ClassOf<ElementAttributeDef>(),
                              &ClassOf<ElementAttributes>(),
                              &ClassOf<INamespaceProvider>(),
                              &ClassOf<PlugIns>(),
                              &ClassOf<PlugIn>(),
                              &ClassOf<ExternalDocs>(),
                              &ClassOf<ExternalDoc>(),
                              &ClassOf<ExternalLink>(),
                              &ClassOf<VSNETOptions>(),
                              &ClassOf<VBOptions>(),
                              &ClassOf<LWCommenterOptions>(),
                              &ClassOf<IDEOptions>(),
                              &ClassOf<SpellingOptions>(),
                              &ClassOf<CommonEnums>(),
                              &ClassOf<Collection>(),
                              &ClassOf<XMLDocument>(),
                              &ClassOf<XMLElement>(),
                              &ClassOf<XMLElements>(),
                              &ClassOf<XMLAttributes>(),
                              &ClassOf<XMLAttribute>(),
                              &ClassOf<DiskFile>(),
                              &ClassOf<DiskFiles>(),
                              &ClassOf<RegistryAccess>(),
                              &ClassOf<StringTools>(),
                              &ClassOf<ObjectReference<AnyObject>>()};
  return all;
}

std::span<const EnumInfo* const> PublishedEnumerations() {
  static const std::array all{
      &EnumOf<PageTypeEnum>(),          &EnumOf<NodeTypeEnum>(),        &EnumOf<DependantOnEnum>(),
      &EnumOf<VariableDefTypeEnum>(),   &EnumOf<ElementTypeEnum>(),     &EnumOf<WrapTypeEnum>(),
      &EnumOf<mcInsertionPointEnum>(),  &EnumOf<mcMemberTypeEnum>(),    &EnumOf<LWToolBarStyleEnum>(),
      &EnumOf<CommentEditorViewEnum>(), &EnumOf<LWVSWindowStyleEnum>(), &EnumOf<BlockPositionEnum>(),
      &EnumOf<CommentModeEnum>(),       &EnumOf<LWIPCCommandEnum>()};
  return all;
}

const ClassInfo* FindClass(std::string_view name) {
  return FindByName<ClassInfo>(PublishedClasses(), name, [](const ClassInfo& info) { return info.Name(); });
}

const EnumInfo* FindEnumeration(std::string_view name) {
  return FindByName<EnumInfo>(PublishedEnumerations(), name, [](const EnumInfo& info) { return info.Name; });
}

}  // namespace lwconfig::automation
