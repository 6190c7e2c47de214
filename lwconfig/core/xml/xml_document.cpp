#include <algorithm>
#include <cstring>

#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/xml/internal/xml_data.h>
#include <lwconfig/core/xml/xml_document.h>

namespace lwconfig {

namespace {

/// The position of the first reference to an entity that XML does not define, outside comments and CDATA
/// sections; npos where there is none.
std::size_t FindUnknownReference(std::string_view text) {
  using namespace std::string_view_literals;
  constexpr std::size_t kLongestKnown = 4;
  constexpr int kMostExamined = 20;  // a file with more has them in a section, most likely
  const auto isInside = [&](std::size_t at, std::string_view opening, std::string_view closing) {
    const auto before = text.substr(0, at);
    const auto opened = before.rfind(opening);
    return opened != std::string_view::npos && before.find(closing, opened) == std::string_view::npos;
  };
  int examined = 0;
  for (auto at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
    // Examine only names of bounded length: a text full of ampersands must not take quadratic time.
    const auto start = text.substr(at + 1, kLongestKnown + 1);
    const auto name = start.substr(0, start.find(';'));
    if (name.starts_with('#')) continue;
    if (name == "amp"sv || name == "lt"sv || name == "gt"sv || name == "quot"sv || name == "apos"sv) continue;
    if (++examined > kMostExamined) break;
    if (!isInside(at, "<!--", "-->") && !isInside(at, "<![CDATA[", "]]>")) return at;
  }
  return std::string_view::npos;
}

bool IsBlank(const char* text) {
  return text[std::strspn(text, " \t\r\n")] == '\0';
}

/// Removes the element that was parsed last if its start tag is not finished.
void RemoveUnfinished(pugi::xml_node tree, pugi::xml_parse_status status) {
  if (status != pugi::status_bad_start_element && status != pugi::status_bad_attribute) return;
  while (const pugi::xml_node last = tree.last_child()) tree = last;
  tree.parent().remove_child(tree);
}

}  // namespace

bool XMLDocumentData::Parse() {
  IsDraft = false;
  if (Observer) Original = Text;
  // Parse fragments too, so that content beside the document element is seen, not skipped.
  constexpr unsigned kKeepAll = pugi::parse_default | pugi::parse_comments | pugi::parse_pi |
                                pugi::parse_doctype | pugi::parse_fragment;
  constexpr unsigned kKeepText = (kKeepAll & ~pugi::parse_eol) | pugi::parse_ws_pcdata;
  // Keep references as written where markup is text.
  const std::size_t unknownReference = KeepsText ? std::string::npos : FindUnknownReference(Text);
  // Pass the NUL behind the text: the parser uses the last character as its end mark.
  const auto result = Tree.load_buffer_inplace(Text.data(), Text.size() + 1, KeepsText ? kKeepText : kKeepAll,
                                               pugi::encoding_utf8);
  ParsedLength = Text.size();
  if (!result) {
    RemoveUnfinished(Tree, result.status);
    // Report a fault at the end at the last character.
    const auto fault = static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0));
    if (fault + 1 < Text.size()) ParsedLength = fault;
    return Fail(fault, result.description());
  }
  if (unknownReference != std::string::npos)
    return Fail(unknownReference, "a reference to an unknown entity");
  return CheckDocumentElement();
}

bool XMLDocumentData::Fail(std::size_t offset, std::string_view problem) {
  ParseFailurePosition = PositionOf(offset);
  ParseFailure = "not well-formed XML: ";
  ParseFailure += Text.empty() ? "the text is empty" : problem;
  return false;
}

bool XMLDocumentData::CheckDocumentElement() {
  const pugi::xml_node root = Tree.document_element();
  if (!root) return Fail(0, "there is no element");
  for (const pugi::xml_node node : Tree.children()) {
    if (node.type() == pugi::node_element && node != root) {
      return Fail(OffsetOf(node.name()).value_or(0), "a second element beside the first");
    }
    if ((node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) && !IsBlank(node.value())) {
      return Fail(OffsetOf(node.value()).value_or(0), "text outside the element");
    }
  }
  return true;
}

void XMLDocumentData::Settle() {
  if (!IsDraft) return;
  // Give a root without a name a temporary one, so that the text can be parsed.
  const bool isNamed = !Draft.Root().Name.empty();
  if (!isNamed) Draft.Root().Name = "unnamed";
  Text = Draft.Serialise();
  Parse();
  pugi::xml_node root = Tree.document_element();
  Draft.LinkTo(root);
  if (!isNamed) root.set_name("");
}

std::optional<std::size_t> XMLDocumentData::OffsetOf(const char* name) const {
  const bool parsed = !std::less<const char*>()(name, Text.data()) &&
                      std::less<const char*>()(name, Text.data() + Text.size());
  return parsed ? std::optional(static_cast<std::size_t>(name - Text.data())) : std::nullopt;
}

FilePosition XMLDocumentData::Position(const char* name) const {
  if (const auto offset = OffsetOf(name)) return PositionOf(*offset);
  return SourcePath.empty() ? FilePosition{} : FilePosition{SourcePath, 1, 1};
}

FilePosition XMLDocumentData::PositionOf(std::size_t offset) const {
  // Count places in the original text: the parser writes into its own. Read the file again where the text
  // was not kept.
  if (SourcePath.empty() && Original.empty()) return {};  // written here, not read
  std::string reread;
  const bool isKept = KeepsText || SourcePath.empty() || Observer;
  if (!isKept) {
    DiskFile file;
    file.SetFullPath(SourcePath);
    try {
      reread = file.ReadAll();
    } catch (const Error&) {
      reread.clear();
    }
    if (reread.size() != Text.size()) return {SourcePath, 0, 0};
  }
  // Continue counting from the previous place: most requests come in order, and lines may be of any length.
  Place place = isKept && LastPlace.Offset <= offset ? LastPlace : Place{};
  std::string_view between = isKept ? Original : reread;
  between = between.substr(0, offset);
  between.remove_prefix(std::min(place.Offset, between.size()));
  if (const auto lineEnd = between.rfind('\n'); lineEnd != std::string_view::npos) {
    place.Line += static_cast<std::int32_t>(std::ranges::count(between, '\n'));
    place.Column = 1;
    between.remove_prefix(lineEnd + 1);
  }
  place.Column += static_cast<std::int32_t>(CountCharacters(between));
  place.Offset = offset;
  if (isKept) LastPlace = place;
  return {SourcePath, place.Line, place.Column};
}

XMLDocument::XMLDocument() : mData(std::make_shared<XMLDocumentData>()) {}

XMLElement XMLDocument::RootElement() {
  if (mData->IsDraft) return XMLElement(mData, mData->Draft.Root());
  auto root = mData->Tree.document_element();
  if (!root) root = mData->Tree.append_child(pugi::node_element);
  return XMLElement(mData, root.internal_object());
}

bool XMLDocument::LoadXML(std::string Text) {
  return LoadXMLWithOption(std::move(Text), false);
}

bool XMLDocument::LoadXMLWithOption(std::string Text, bool Option, std::string SourcePath,
                                    std::shared_ptr<XMLObserver> observer) {
  mData = std::make_shared<XMLDocumentData>();
  mData->Observer = std::move(observer);
  mData->KeepsText = Option;
  mData->SourcePath = std::move(SourcePath);
  mData->Original = Text;
  mData->Text = std::move(Text);
  return mData->Parse();
}

bool XMLDocument::ReadFile(const DiskFile& file, std::shared_ptr<XMLObserver> observer) {
  mData = std::make_shared<XMLDocumentData>();
  mData->SourcePath = file.FullPath();
  std::string doubt;
  mData->Text = file.ReadAll(observer ? &doubt : nullptr);
  if (!doubt.empty()) observer->Doubtful(std::move(doubt));
  mData->Observer = std::move(observer);
  return mData->Parse();
}

const std::string& XMLDocument::ParseFailure() const {
  return mData->ParseFailure;
}
const FilePosition& XMLDocument::ParseFailurePosition() const {
  return mData->ParseFailurePosition;
}

std::string XMLDocument::XML() const {
  const bool isNamed =
      mData->IsDraft ? !mData->Draft.Root().Name.empty() : *mData->Tree.document_element().name() != '\0';
  if (!isNamed) throw Error(kInvalidCall, "The document has no element with a name, and cannot be written");
  return mData->IsDraft ? mData->Draft.Serialise() : TreeText(mData->Tree.root());
}

}  // namespace lwconfig
