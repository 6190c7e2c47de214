#include <lwconfig/comments/model_comments.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/configuration_files.h>
#include <lwconfig/namespaces/namespace_profiles.h>

namespace lwconfig {
namespace {

std::string GlobalFile() {
  return ConfigPath() + "\\modelcomments.xml";
}

}  // namespace

void ModelComments::SetDirty(bool dirty) {
  if (mDirty == dirty) return;
  mDirty = dirty;
  DirtyStateChanged.Raise();
}

std::shared_ptr<NamespaceDefs> ModelComments::NamespaceDefs() const {
  const auto profiles = SharedSlot<NamespaceProfiles>::Get();
  if (!profiles) throw Error(kObjectNotSet, "The namespace profiles are not loaded");
  return profiles->Item(NamespaceProfile);
}

// A file of the folder "modelcomments", or modelcomments.xml.
//
//   <ModelCommentProfile Version="4.0" Namespace="LW.Core" Name= Description=>
//     <MC MemberType_Namespace="LW:Method" MemberName="Add*" TaggedCommentPrefix="##REMARKS"
//         TaggedCommentText= OnlyIfBlank="True" InsertionPoint="2"/>
//     <MC MemberType="5" .../>                              older files: the number of the kind
//   </ModelCommentProfile>
void ModelComments::Load(const XMLElement& e) {
  mCol.Clear();
  AttributeReader in(e);
  in.Skip("Version");
  in.Try("Namespace", NamespaceProfile);
  in.Require("Name", Name);
  in.Require("Description", Description);
  ReadChildren(e, "MC", [&](const XMLElement& child) {
    auto comment = std::make_shared<ModelComment>();
    comment->Load(child);
    Add(std::move(comment));
  });
}

void ModelComments::Save(XMLElement& e) const {
  e.SetName("ModelCommentProfile");
  e.PutAttribute("Version", "4.0");
  e.PutAttribute("Namespace", NamespaceProfile);
  e.PutAttribute("Name", Name);
  e.PutAttribute("Description", Description);
  for (const auto& comment : *this) {
    auto child = e.AddElement("MC", "");
    comment->Save(child);
  }
}

std::shared_ptr<ModelComments> ModelComments::Clone() const {
  auto copies = std::make_shared<ModelComments>();
  copies->NamespaceProfile = NamespaceProfile;
  copies->Name = Name;
  copies->Description = Description;
  for (const auto& comment : *this) copies->Add(comment->Clone());
  return copies;
}

void ModelComments::LoadGlobal() {
  LoadFromFile(GlobalFile());
}

void ModelComments::SaveToGlobal() {
  RequireConfigPath();
  SaveToFile(GlobalFile());
}

void ModelComments::LoadFromFile(std::string_view fileName) {
  FileName = fileName;
  mCol.Clear();
  ReadConfigurationFiles({DiskFile(FileName)}, [&](const DiskFile&, const XMLElement& root) { Load(root); });
  IsPopulated = true;
  mDirty = false;
}

void ModelComments::SaveToFile(std::string_view fileName) {
  DiskFile file(fileName);
  WriteConfigurationFile(file, [&](XMLElement& root) { Save(root); });
  SetDirty(false);
}

}  // namespace lwconfig
