#include <algorithm>
#include <cstring>
#include <utility>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/inspection.h>
#include <lwconfig/core/xml/internal/xml_data.h>
#include <lwconfig/core/xml/xml_characters.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {
namespace {

using pugi::xml_attribute;
using pugi::xml_node;

constexpr const char* kBlanks = " \t\r\n";

bool IsBlank(const char* text) {
  return text[std::strspn(text, kBlanks)] == '\0';
}

}  // namespace

/// Records for one document which nodes are read, and for the inspection which absent names
/// readers asked for.
class Inspection::Watch final : public XMLObserver {
 public:
  explicit Watch(Inspection& inspection) : mInspection(inspection) {}

  void LookedAt(std::size_t offset) override {
    if (offset >= mLooked.size()) mLooked.resize(offset + 1);
    mLooked[offset] = true;
  }
  void Absent(NameKind kind, std::string_view parent, std::string_view name) override {
    auto& names = mInspection.mAbsent[static_cast<int>(kind)];
    auto known = names.find(parent);
    if (known == names.end()) known = names.emplace(parent, std::vector<std::string>()).first;
    if (std::ranges::find(known->second, name) == known->second.end()) known->second.emplace_back(name);
  }
  void Doubtful(std::string doubt) override { mDoubt = std::move(doubt); }

  bool IsLookedAt(std::size_t offset) const { return offset < mLooked.size() && mLooked[offset]; }
  const std::string& Doubt() const { return mDoubt; }

 private:
  Inspection& mInspection;
  std::vector<bool> mLooked;
  std::string mDoubt;
};

Inspection::Inspection(DiagnosticHandler report, FileInspector inspect, TextInspector inspectText,
                       PathFinder findPath)
    : LoadListener(std::move(report)),
      mInspect(std::move(inspect)),
      mInspectText(std::move(inspectText)),
      mFindPath(std::move(findPath)) {
  SetCurrent(this);
}

Inspection::~Inspection() {
  SetCurrent(nullptr);
}

void Inspection::BeginFile(const std::string& path) {
  mFiles.push_back(path);
}

std::shared_ptr<XMLObserver> Inspection::Observe() {
  return std::make_shared<Watch>(*this);
}

bool Inspection::IsSound(const std::string& file) const {
  const auto counts = mCounts.find(file);
  return counts == mCounts.end() || std::ranges::none_of(ProblemKinds(), [&](const ProblemKind& kind) {
           return kind.Severity == Severity::Error &&
                  counts->second[static_cast<std::size_t>(kind.Problem)] > 0;
         });
}

std::vector<Diagnostic> Inspection::Rests() const {
  std::vector<Diagnostic> rests;
  for (const std::string& file : mFiles) {
    const auto counts = mCounts.find(file);
    if (counts == mCounts.end()) continue;
    for (const ProblemKind& kind : ProblemKinds()) {
      const int count = counts->second[static_cast<std::size_t>(kind.Problem)] - kMostReported;
      if (count <= 0) continue;
      Diagnostic& rest = rests.emplace_back();
      rest.Position.File = file;
      rest.Message = "and " + std::to_string(count) + " more of this kind";
      rest.Problem = kind.Problem;
      rest.Count = count;
    }
  }
  return rests;
}

std::string Inspection::ModelPathOf(const XMLElement& e) const {
  return mFindPath ? mFindPath(e) : std::string();
}

std::string Inspection::NearestAbsent(NameKind kind, std::string_view parent, std::string_view name) const {
  const auto& names = mAbsent[static_cast<int>(kind)];
  const auto known = names.find(parent);
  return known == names.end() ? std::string() : Nearest(name, known->second);
}

/// Walks the tree of a loaded file and reports everything that no loader read.
class Inspection::Walk {
 public:
  Walk(Inspection& inspection, const XMLElement& root, const Watch& watch)
      : mInspection(inspection), mRoot(root), mDocument(*root.mDocument), mWatch(watch) {}

  /// Walk without recursion: elements nest to any depth.
  void Run() {
    const xml_node root(mRoot.Node());
    ReportAttributes(root);
    xml_node node = root.first_child();
    while (node) {
      if (Visit(node) && node.first_child()) {
        node = node.first_child();
        continue;
      }
      while (!node.next_sibling()) {
        node = node.parent();
        if (node == root) return;
      }
      node = node.next_sibling();
    }
  }

 private:
  bool IsLookedAt(const char* at) const {
    const auto offset = mDocument.OffsetOf(at);
    return !offset || mWatch.IsLookedAt(*offset);
  }

  /// Whether to visit the children.
  bool Visit(xml_node node) {
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
      if (!IsBlank(node.value()) && !IsLookedAt(node.value())) ReportText(node);
      return false;
    }
    if (node.type() != pugi::node_element) return false;
    if (!IsLookedAt(node.name())) {
      ReportElement(node);
      return false;
    }
    ReportAttributes(node);
    // Skip the children where markup is text: they were read with the text.
    return !mDocument.KeepsText || node == mDocument.Tree.document_element();
  }

  void ReportAttributes(xml_node element) {
    // Collect the names that were read: they are few, however many attributes there are.
    std::vector<const char*> read;
    for (const xml_attribute attribute : element.attributes()) {
      if (IsLookedAt(attribute.name())) read.push_back(attribute.name());
    }
    for (const xml_attribute attribute : element.attributes()) {
      if (!IsLookedAt(attribute.name())) ReportAttribute(element, attribute, read);
    }
  }

  void ReportAttribute(xml_node element, xml_attribute attribute, const std::vector<const char*>& read) {
    const bool isRepeated = std::ranges::any_of(
        read, [&](const char* other) { return EqualIgnoringCase(other, attribute.name()); });
    if (isRepeated) {
      return mInspection.Report(Problem::RepeatedAttribute, ElementAt(element), attribute.name(),
                                RepeatedAttributeMessage(attribute.name(), element.name()));
    }
    mInspection.Report(
        Problem::UnreadAttribute, ElementAt(element), attribute.name(),
        "nothing reads the attribute \"" + std::string(attribute.name()) + "\" of " + Tag(element),
        [&] { return mInspection.NearestAbsent(NameKind::Attribute, element.name(), attribute.name()); });
  }

  void ReportElement(xml_node element) {
    const xml_node parent = element.parent();
    mInspection.Report(Problem::UnreadElement, ElementAt(element), {},
                       "nothing reads " + Tag(element) + " in " + Tag(parent), [&] {
                         return mInspection.NearestAbsent(NameKind::Element, parent.name(), element.name());
                       });
  }

  void ReportText(xml_node text) {
    if (!mInspection.Count(Problem::UnreadText, mDocument.SourcePath)) return;
    constexpr std::size_t kShown = 30;
    std::string_view shown = text.value();
    shown.remove_prefix(shown.find_first_not_of(kBlanks));
    shown = shown.substr(0, std::min(shown.find_first_of("\r\n"), kShown));
    // Count the blanks in the original text: the parser has shortened line ends.
    const std::size_t start = mDocument.OffsetOf(text.value()).value_or(0);
    mInspection.Hand({mDocument.PositionOf(mDocument.Original.find_first_not_of(kBlanks, start)),
                      "nothing reads the text \"" + std::string(shown) + "\" in " + Tag(text.parent()),
                      Problem::UnreadText,
                      {},
                      mInspection.ModelPathOf(ElementAt(text.parent()))});
  }

  XMLElement ElementAt(xml_node node) const { return {mRoot.mDocument, node.internal_object()}; }
  static std::string Tag(xml_node element) { return "<" + std::string(element.name()) + ">"; }

  Inspection& mInspection;
  const XMLElement& mRoot;
  const XMLDocumentData& mDocument;
  const Watch& mWatch;
};

void Inspection::EndFile(const XMLElement& root) {
  const XMLDocumentData& data = *root.mDocument;
  const auto& watch = static_cast<const Watch&>(*data.Observer);
  if (!watch.Doubt().empty()) Report(Problem::DoubtfulEncoding, {data.SourcePath, 1, 1}, watch.Doubt());
  if (data.Text.empty()) return;
  ReportForbiddenCharacters(data);
  Walk(*this, root, watch).Run();
  if (mInspect) mInspect(data.SourcePath, root);
  if (data.KeepsText) EndText(data.SourcePath, data.Original);
}

void Inspection::EndText(const std::string& path, std::string_view text) {
  if (mInspectText) mInspectText(path, text);
}

void Inspection::ReportForbiddenCharacters(const XMLDocumentData& document) {
  ForEachForbiddenCharacter(document.Original, [&](std::size_t offset, std::uint32_t character) {
    if (!Count(Problem::ForbiddenCharacter, document.SourcePath)) return;
    Hand({document.PositionOf(offset),
          "XML has no character " + CharacterName(character) + "; other programs reject the file",
          Problem::ForbiddenCharacter});
  });
}

}  // namespace lwconfig
