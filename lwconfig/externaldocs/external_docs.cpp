#include <algorithm>

#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/configuration_files.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/externaldocs/external_docs.h>
#include <lwconfig/externaldocs/wildcard.h>

namespace lwconfig {
namespace {

constexpr std::string_view kDelimiter = "%%";
constexpr std::string_view kCaption = "LinkCaption";
constexpr std::string_view kMemberName = "MemberName";

DiskFile SourcesFile() {
  return DiskFile(ConfigPath(), "ExternalDocs", "xml");
}

struct NameParts {
  explicit NameParts(std::string_view fullName) : Full(fullName), Short(fullName) {
    const auto dot = fullName.rfind('.');
    if (dot == std::string_view::npos) return;
    Namespace = fullName.substr(0, dot);
    Short = fullName.substr(dot + 1);
  }
  std::string_view Full;
  std::string_view Namespace;
  std::string_view Short;
};

std::string WithoutDots(std::string_view text) {
  std::string result(text);
  std::erase(result, '.');
  return result;
}

/// The value of each placeholder, filed under its name.
class Placeholders : public Collection {
 public:
  Placeholders(const NameParts& name, std::string_view shortName, const std::string& fullName) {
    Set("Namespace", name.Namespace);
    Set("Namespace_NoDots", WithoutDots(name.Namespace));
    Set(shortName, name.Short);
    Set(fullName, name.Full);
    Set(fullName + "_NoDots", WithoutDots(name.Full));
  }
  void Set(std::string_view name, std::string_view value) { Add(std::string(value), name); }
};

Placeholders OfObject(const NameParts& name) {
  return Placeholders(name, "Object", "FullName");
}
Placeholders OfMember(const NameParts& name) {
  return Placeholders(name, "Class", "ClassFullName");
}

std::vector<std::string> Names(const Placeholders& values) {
  std::vector<std::string> names;
  for (std::int32_t position = 1; position <= values.Count(); ++position)
    names.push_back(values.KeyAt(position));
  return names;
}

std::string MemberPlaceholder(std::string_view memberName) {
  constexpr std::string_view kConstructor = "_ctor";
  std::string name(memberName.substr(0, memberName.find('(')));
  for (auto at = name.find(kConstructor); at != std::string::npos; at = name.find(kConstructor, at)) {
    name.erase(at, 1);
    at += kConstructor.size() - 1;
  }
  return name;
}

std::string FormatLink(const ExternalLink& link, const Placeholders& values, std::string_view caption,
                       bool isHelp2) {
  const bool usesHelp2 = isHelp2 && !link.Help2LinkFormat.empty();
  const std::string& markup = usesHelp2 ? link.Help2LinkFormat : link.HTMLHelp1LinkFormat;
  if (!markup.empty()) return StringTools::ExpandPlaceholders(markup, values, kDelimiter);
  return "<a href=\"" + StringTools::ExpandPlaceholders(link.URLFormat, values, kDelimiter) + "\">" +
         std::string(caption) + "</a>";
}

}  // namespace

// ExternalDocs.xml.
//
//   <ExternalDocuments Version="4.0">
//     <ExternalDoc Namespace="System.Web*" URLFormat= HTMLHelp1Link= Help2Link=>
//       <DefaultMemberLink URLFormat= HTMLHelp1Link= Help2Link=/>       the first child, under any name
//     </ExternalDoc>
//   </ExternalDocuments>
void ExternalDocs::Load() {
  if (const DiskFile file = SourcesFile(); file.Exists()) {
    ReadConfigurationFiles({file}, [&](const DiskFile&, const XMLElement& root) {
      AttributeReader(root).Skip("Version");
      ReadChildren(root, "ExternalDoc", [&](const XMLElement& child) {
        auto source = std::make_shared<ExternalDoc>();
        source->Load(child);
        Add(source, source->NamespaceName);
      });
    });
  }
  Dirty = false;
}

void ExternalDocs::Save() {
  RequireConfigPath();
  DiskFile file = SourcesFile();
  WriteConfigurationFile(file, [&](XMLElement& root) {
    root.SetName("ExternalDocuments");
    root.PutAttribute("Version", "4.0");
    for (const auto& source : *this) {
      XMLElement child = root.AddElement("ExternalDoc", "");
      source->Save(child);
    }
  });
  Dirty = false;
}

std::string ExternalDocs::Link(std::string_view ObjectFullName, std::string_view Caption, bool IsHelp2,
                               std::string_view AdditionalKey) {
  std::string key(ObjectFullName);
  ((key += ':') += Caption) += ':';
  key += AdditionalKey;
  if (const auto* known = mClassLinks.Find(key)) return *known;

  const NameParts name(ObjectFullName);
  std::string covered(name.Namespace);
  if (covered.find('.') == std::string::npos) covered += '.';
  const auto* source = FindSource(covered);
  if (source == nullptr) return {};
  auto values = OfObject(name);
  values.Set(kCaption, Caption);
  auto link = FormatLink(*source->ClassLink, values, Caption, IsHelp2);
  mClassLinks.Add(link, key);
  return link;
}

bool ExternalDocs::IsLinkAvailable(std::string_view ClassFullName) {
  const std::string_view name = NameParts(ClassFullName).Namespace;
  if (const auto* known = mLinkedNamespaces.Find(name)) return *known != " ";
  const auto* source = FindSource(name);
  // Cache no empty name: an empty key would not be found again.
  if (source != nullptr && !name.empty()) mLinkedNamespaces.Add(source->NamespaceName, name);
  return source != nullptr;
}

std::string ExternalDocs::MemberLink(std::string_view ClassFullName, std::string_view MemberName,
                                     std::string_view Caption, bool IsHelp2) const {
  const NameParts name(ClassFullName);
  const auto* source = FindSource(name.Namespace);
  if (source == nullptr) return {};
  auto values = OfMember(name);
  values.Set(kMemberName, MemberPlaceholder(MemberName));
  values.Set(kCaption, Caption);
  return FormatLink(*source->DefaultMemberLink, values, Caption, IsHelp2);
}

std::string ExternalDocs::URL(std::string_view ObjectFullName) const {
  const auto* source = FindSource(ObjectFullName);
  if (source == nullptr) return {};
  return StringTools::ExpandPlaceholders(source->URLFormat(), OfObject(NameParts(ObjectFullName)),
                                         kDelimiter);
}

std::vector<std::string> ExternalDocs::ObjectPlaceholders() {
  auto values = OfObject(NameParts({}));
  values.Set(kCaption, {});
  return Names(values);
}

std::vector<std::string> ExternalDocs::MemberPlaceholders() {
  auto values = OfMember(NameParts({}));
  values.Set(kMemberName, {});
  values.Set(kCaption, {});
  return Names(values);
}

void ExternalDocs::ResetLinkCache() {
  mClassLinks.Clear();
  mLinkedNamespaces.Clear();
}

std::shared_ptr<ExternalDocs> ExternalDocs::Clone() const {
  auto copies = std::make_shared<ExternalDocs>();
  for (const auto& source : *this) copies->Add(source->Clone());
  return copies;
}

const ExternalDoc* ExternalDocs::FindSource(std::string_view name) const {
  for (const auto& source : *this) {
    if (MatchesWildcard(name, source->NamespaceName)) return source.get();
  }
  return nullptr;
}

}  // namespace lwconfig
