#include <deque>
#include <vector>

#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/namespaces/definition_walk.h>
#include <lwconfig/namespaces/namespace_def.h>

namespace lwconfig {
namespace {

[[noreturn]] void FailOnTag() {
  Error error(kTypeMismatch, "Type mismatch");
  error.SetSource("Tag no longer supported");
  throw error;
}

/// A definition whose nested elements are being read.
struct OpenDefinition {
  OpenDefinition(std::shared_ptr<NamespaceDef> definition, XMLElements elements)
      : Definition(std::move(definition)), Elements(std::move(elements)), Next(Elements.begin()) {}
  OpenDefinition(const OpenDefinition&) = delete;  // the iterator refers to the elements beside it
  OpenDefinition& operator=(const OpenDefinition&) = delete;

  std::shared_ptr<NamespaceDef> Definition;
  XMLElements Elements;
  XMLElements::Iterator Next;
};

}  // namespace

NamespaceDef::~NamespaceDef() {
  // Destroy definitions that only this one owns level by level, not recursively: they nest to any depth.
  std::vector<std::shared_ptr<lwconfig::NamespaceDefs>> pending;
  if (mChildren) pending.push_back(std::move(mChildren));
  while (!pending.empty()) {
    const auto children = std::move(pending.back());
    pending.pop_back();
    if (children.use_count() > 1) continue;
    for (const auto& child : *children) {
      if (child.use_count() == 1 && child->mChildren) pending.push_back(std::move(child->mChildren));
    }
  }
}

AnyObject NamespaceDef::Tag() const {
  FailOnTag();
}
void NamespaceDef::SetTag(const AnyObject& /*tag*/) {
  FailOnTag();
}

std::shared_ptr<NamespaceDefs> NamespaceDef::ChildNamespaceDefs() const {
  if (!mChildren) mChildren = std::make_shared<lwconfig::NamespaceDefs>();
  return mChildren;
}

void NamespaceDef::LoadAttributes(const XMLElement& e) {
  AttributeReader in(e);
  in.Require("Name", Name);
  in.Require("Handler", Handler);
  in.Require("Caption", Caption);
  in.Try("CommenterCaption", CommenterCaption);
  in.Try("Caption_Plural", CaptionPlural);
  in.Try("ProvideIncludeFlag", ProvideIncludeFlag, ExactTrue);
  in.Try("defaultIncludeFlag", DefaultIncludeFlag, ExactTrue);
  in.Try("Tree_AlwaysPopulate", Tree_AlwaysPopulate, ExactTrue);
  in.Try("tree_alwaysexpand", Tree_AlwaysExpand, ExactTrue);
  in.Try("Tree_Icon", Tree_Icon);
  in.Try("Tree_ShowInSelect", Tree_ShowInSelect, ExactTrue);
  in.Try("Tree_AllowExclude", Tree_AllowExclude, ExactTrue);
  in.Try("Tree_CaptionTemplate", Tree_CaptionTemplate);
  in.Try("Tree_ShowFolder", Tree_ShowFolder, ExactTrue);
  in.Try("Tree_ShowFolderInSelect", Tree_ShowFolderInSelect, ExactTrue);
  in.Try("Flags", Flags);
  in.Try("ID", ID);
  in.Try("FileNameFormat", FileNameFormat);
  in.Try("Tree_Select_AlwaysPopulate", Tree_Select_AlwaysPopulate, ExactTrue);
}

void NamespaceDef::Load(const XMLElement& e) {
  LoadAttributes(e);
  const auto profile = NamespaceDefs();
  // The open definitions, from the outermost nested one inwards.
  std::deque<OpenDefinition> open;
  open.emplace_back(nullptr, e.Children());
  while (!open.empty()) {
    auto& current = open.back();
    if (current.Next == std::default_sentinel) {
      const auto complete = std::move(current.Definition);
      open.pop_back();
      if (open.empty()) break;
      const auto& parent = open.back().Definition;
      (parent ? parent->ChildNamespaceDefs() : ChildNamespaceDefs())->Add(complete, complete->Name);
      continue;
    }
    const XMLElement element = *current.Next;
    ++current.Next;
    auto nested = std::make_shared<NamespaceDef>();
    nested->SetNamespaceDefs(profile);
    nested->LoadAttributes(element);
    open.emplace_back(std::move(nested), element.Children());
  }
}

void NamespaceDef::ResetIncludeFlag() {
  IncludeFlag = DefaultIncludeFlag;
  WalkDefinitions(ExistingChildren(),
                  [](const auto& nested) { nested->IncludeFlag = nested->DefaultIncludeFlag; });
}

void NamespaceDef::ResetCounters() {
  Counter = 0;
  WalkDefinitions(ExistingChildren(), [](const auto& nested) { nested->Counter = 0; });
}

}  // namespace lwconfig
