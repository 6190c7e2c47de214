#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {

namespace {

bool LoadXMLWithOption(XMLDocument& self, std::string text, bool option) {
  return self.LoadXMLWithOption(std::move(text), option);
}

std::string ReadAll(const DiskFile& self) {
  return self.ReadAll();
}

void Open(
    DiskFile& self, std::int32_t mode, std::int32_t access, std::int32_t share, const Variant& /*length*/) {
  self.Open(mode, access, share);
}

std::shared_ptr<DiskFiles> Files(DiskFile& self, std::string_view pattern, std::int32_t mode) {
  auto files = std::make_shared<DiskFiles>();
  for (DiskFile& file : self.Files(pattern, mode)) files->Add(std::make_shared<DiskFile>(std::move(file)));
  return files;
}

/// Whatever becomes a text has the form that is written elsewhere.
void SetValue(
    const RegistryAccess& self, std::uint32_t hive, std::string_view keyPath, std::string_view valueName,
    const Variant& value, std::int32_t valueType) {
  const bool isNumber = valueType == RegistryAccess::kNumberType;
  const RegistryData data = isNumber ? Crossing<RegistryData>::FromVariant(value) : ToText(value);
  self.SetValue(hive, keyPath, valueName, data, valueType);
}

bool KeyExists(StringTools&, const Collection& collection, std::string_view key) {
  return StringTools::KeyExists(collection, key);
}
std::string JoinCollection(StringTools&, const Collection& collection, std::string_view separator) {
  return StringTools::JoinCollection(collection, separator);
}
std::string Piece(StringTools&, std::string_view text, std::string_view separator, std::int32_t index) {
  return StringTools::Piece(text, separator, index);
}
bool ObjectKeyExists(StringTools&, const AnyObject& collection, const std::string& key) {
  if (collection.Class == &ClassOf<XMLAttributes>())
    return StringTools::ObjectKeyExists(*static_cast<XMLAttributes*>(collection.Pointer.get()), key);
  Variant argument = key;
  const Variant item = Invoke(collection, kDefaultMemberId, kPropertyGet, {std::span(&argument, 1)});
  const auto* object = std::get_if<AnyObject>(&item);
  return object != nullptr ? static_cast<bool>(*object) : !std::holds_alternative<std::monostate>(item);
}
std::shared_ptr<Collection> SplitToCollection(
    StringTools&, std::string_view text, std::string_view separator) {
  return StringTools::SplitToCollection(text, separator);
}
std::string ExpandPlaceholders(
    StringTools&, std::string_view format, const Collection& values, std::string_view delimiter) {
  return StringTools::ExpandPlaceholders(format, values, delimiter);
}

}  // namespace

template <>
const ClassInfo& ClassOf<XMLDocument>() {
  using I = Interface<XMLDocument>;
  static constexpr auto kSlots = I::Slots(
      I::Get<&XMLDocument::RootElement>("RootElement"),
      I::Method<&XMLDocument::LoadXML>("LoadXML", "Text"),
      I::Method<LoadXMLWithOption>("LoadXMLWithOption", "Text", "Option"),
      I::Get<&XMLDocument::XML>("XML"));
  static const ClassInfo info = I::Class("XMLDocument", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<XMLElement>() {
  using I = Interface<XMLElement>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&XMLElement::Name, &XMLElement::SetName>("Name"),
      I::Get<&XMLElement::Text>("Text"),
      I::Get<&XMLElement::Attributes>("Attributes"),
      I::Get<&XMLElement::Children>("Children"),
      I::Method<&XMLElement::AddAttribute>("AddAttribute", "Name", "Value"),
      I::Method<&XMLElement::AddElement>("AddElement", "Name", "Text"));
  static const ClassInfo info = I::Class("XMLElement", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<XMLElements>() {
  using I = Interface<XMLElements>;
  static constexpr auto kSlots =
      I::Slots(I::Get<&XMLElements::Item>("Item", "Key"), I::Get<&XMLElements::Count>("Count"), I::NewEnum());
  static const ClassInfo info = I::Class("XMLElements", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<XMLAttributes>() {
  using I = Interface<XMLAttributes>;
  static constexpr auto kSlots = I::Slots(I::Get<&XMLAttributes::Item>("Item", "Key"));
  static const ClassInfo info = I::Class("XMLAttributes", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<XMLAttribute>() {
  using I = Interface<XMLAttribute>;
  static constexpr auto kSlots = I::Slots(I::Get<&XMLAttribute::Value>("Value"));
  static const ClassInfo info = I::Class("XMLAttribute", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<DiskFile>() {
  using I = Interface<DiskFile>;
  static constexpr auto kSlots = I::Slots(
      I::Change<&DiskFile::SetFolder>("Folder"),
      I::Get<&DiskFile::FolderPath>("FolderPath"),
      I::Property<&DiskFile::BaseName, &DiskFile::SetBaseName>("BaseName"),
      I::Change<&DiskFile::SetExtension>("Extension"),
      I::Get<&DiskFile::FileName>("FileName"),
      I::Property<&DiskFile::FullPath, &DiskFile::SetFullPath>("FullPath"),
      I::Get<&DiskFile::Exists>("Exists"),
      I::Get<&DiskFile::IsFolder>("IsFolder"),
      I::Method<Open>("Open", "Mode", "Access", "Share", "RecordLength"),
      I::Get<&DiskFile::IsOpen>("IsOpen"),
      I::Get<ReadAll>("ReadAll"),
      I::Method<&DiskFile::Write>("Write", "Text"),
      I::Method<&DiskFile::Close>("Close"),
      I::Method<&DiskFile::Delete>("Delete"),
      I::Method<Files>("Files", "Pattern", "Mode"));
  static const ClassInfo info = I::Class("DiskFile", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<DiskFiles>() {
  using I = Interface<DiskFiles>;
  static constexpr auto kSlots = I::Slots(
      I::MayBeNull(I::Get<&DiskFiles::Item>("Item", "Key")),
      I::Get<&DiskFiles::Count>("Count"),
      I::NewEnum());
  static const ClassInfo info = I::Class("DiskFiles", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<RegistryAccess>() {
  using I = Interface<RegistryAccess>;
  static constexpr auto kSlots = I::Slots(
      I::Method<&RegistryAccess::GetValue>("GetValue", "Hive", "KeyPath", "ValueName"),
      I::Method<&RegistryAccess::CreateKey>("CreateKey", "Hive", "KeyPath"),
      I::Method<SetValue>("SetValue", "Hive", "KeyPath", "ValueName", "Value", "ValueType"));
  static const ClassInfo info = I::Class("RegistryAccess", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<StringTools>() {
  using I = Interface<StringTools>;
  static constexpr auto kSlots = I::Slots(
      I::Method<KeyExists>("KeyExists", "Collection", "Key"),
      I::Method<JoinCollection>("JoinCollection", "Collection", "Separator"),
      I::Method<Piece>("Piece", "Text", "Separator", "Index"),
      I::Method<ObjectKeyExists>("ObjectKeyExists", "Collection", "Key"),
      I::Method<SplitToCollection>("SplitToCollection", "Text", "Separator"),
      I::Method<ExpandPlaceholders>("ExpandPlaceholders", "Format", "Values", "Delimiter"));
  static const ClassInfo info = I::Class("StringTools", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<Collection>() {
  using I = Interface<Collection>;
  static constexpr auto kSlots = I::Slots(I::CollectionMembers("Item"));
  static const ClassInfo info = I::Class("Collection", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<ObjectReference<AnyObject>>() {
  using Reference = ObjectReference<AnyObject>;
  using I = Interface<Reference>;
  static constexpr auto kSlots = I::Slots(I::Property<&Reference::Object, &Reference::SetObject>("Object"));
  static const ClassInfo info = I::Class("ObjectReference", kSlots);
  return info;
}

}  // namespace lwconfig::automation
