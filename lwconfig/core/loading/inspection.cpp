#include <algorithm>
#include <cstring>
#include <utility>

#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/loading/inspection.h>
#include <lwconfig/core/xml/internal/xml_data.h>
#include <lwconfig/core/xml/xml_characters.h>

namespace lwconfig {
namespace {

using pugi::xml_attribute;
using pugi::xml_node;

constexpr const char* kBlanks = " \t\r\n";

bool IsBlank(const char* text) {
  return text[std::strspn(text, kBlanks)] == '\0';
}

Problem ProblemOf(const Error& failure) {
  switch (failure.Number()) {
    case kDuplicateKey:
      return Problem::DuplicateKey;
    case kTypeMismatch:
    case kOverflow:
      return Problem::InvalidValue;
    case kBadFileName:
    case kFileNotFound:
    case kPermissionDenied:
    case kPathFileAccess:
    case kPathNotFound:
      return Problem::UnreadableFile;
    default:
      return Problem::NotLoaded;
  }
}

}  // namespace

Inspection* Inspection::gCurrent = nullptr;

Inspection::Inspection(DiagnosticHandler tell, FileInspector inspect, TextInspector inspectText)
    : mTell(std::move(tell)),
      mInspect(std::move(inspect)),
      mInspectText(std::move(inspectText)),
      mPreviousHandler(SetDiagnosticHandler([this](const Diagnostic& diagnostic) { Tell(diagnostic); })) {
  gCurrent = this;
}

Inspection::~Inspection() {
  gCurrent = nullptr;
  SetDiagnosticHandler(std::move(mPreviousHandler));
}

bool PassOver(const Error& failure) {
  Inspection* const inspection = Inspection::Current();
  if (inspection != nullptr) inspection->Tell(failure);
  return inspection != nullptr;
}

bool Inspection::IsWanted(Problem problem, const std::string& file) {
  return ++mCounts[file][static_cast<std::size_t>(problem)] <= kMostTold;
}

void Inspection::Tell(const Diagnostic& diagnostic) {
  if (IsWanted(diagnostic.Problem, diagnostic.Position.File)) mTell(diagnostic);
}

void Inspection::Tell(Problem problem, const FilePosition& position, std::string_view message,
                      const std::function<std::string()>& suggest) {
  if (!IsWanted(problem, position.File)) return;
  mTell({position, std::string(message), problem, suggest ? suggest() : std::string()});
}

void Inspection::Tell(Problem problem, const XMLElement& e, std::string_view attribute,
                      std::string_view message, const std::function<std::string()>& suggest) {
  if (!IsWanted(problem, e.mDocument->SourcePath)) return;
  mTell({e.Position(attribute), std::string(message), problem, suggest ? suggest() : std::string()});
}

void Inspection::Tell(const Error& failure) {
  Tell(ProblemOf(failure), failure.Position(), failure.Description());
}

void Inspection::BeginFile(const std::string& path) {
  mFiles.push_back(path);
}

bool Inspection::IsSound(const std::string& file) const {
  const auto counts = mCounts.find(file);
  return counts == mCounts.end() || std::ranges::none_of(ProblemKinds(), [&](const ProblemKind& kind) {
           return kind.Severity == Severity::Error &&
                  counts->second[static_cast<std::size_t>(kind.Problem)] > 0;
         });
}

std::vector<Inspection::Rest> Inspection::Rests() const {
  std::vector<Rest> rests;
  for (const std::string& file : mFiles) {
    const auto counts = mCounts.find(file);
    if (counts == mCounts.end()) continue;
    for (const ProblemKind& kind : ProblemKinds()) {
      const int count = counts->second[static_cast<std::size_t>(kind.Problem)];
      if (count > kMostTold) rests.push_back({file, kind.Problem, count - kMostTold});
    }
  }
  return rests;
}

void Inspection::NoteAbsent(NameKind kind, std::string_view parent, std::string_view name) {
  auto& names = mAbsent[static_cast<int>(kind)];
  auto known = names.find(parent);
  if (known == names.end()) known = names.emplace(parent, std::vector<std::string>()).first;
  if (std::ranges::find(known->second, name) == known->second.end()) known->second.emplace_back(name);
}

std::string Inspection::NearestAbsent(NameKind kind, std::string_view parent, std::string_view name) const {
  const auto& names = mAbsent[static_cast<int>(kind)];
  const auto known = names.find(parent);
  return known == names.end() ? std::string() : Nearest(name, known->second);
}

/// Walks the tree of a file that was loaded and tells of what nothing has read.
class Inspection::Walk {
 public:
  Walk(Inspection& inspection, const XMLDocumentData& document)
      : mInspection(inspection), mDocument(document) {}

  /// Without recursion, since elements nest to any depth.
  void Run(xml_node root) {
    TellAttributes(root);
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
  /// Whether to look at what is inside.
  bool Visit(xml_node node) {
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
      if (!IsBlank(node.value()) && !mDocument.IsLookedAt(node.value())) TellText(node);
      return false;
    }
    if (node.type() != pugi::node_element) return false;
    if (!mDocument.IsLookedAt(node.name())) {
      TellElement(node);
      return false;
    }
    TellAttributes(node);
    // Where markup is text, what is inside was read with the text.
    return !mDocument.KeepsText || node == mDocument.Tree.document_element();
  }

  void TellAttributes(xml_node element) {
    // Few names are read, however many there are.
    std::vector<const char*> read;
    for (const xml_attribute attribute : element.attributes()) {
      if (mDocument.IsLookedAt(attribute.name())) read.push_back(attribute.name());
    }
    for (const xml_attribute attribute : element.attributes()) {
      if (!mDocument.IsLookedAt(attribute.name())) TellAttribute(element, attribute, read);
    }
  }

  void TellAttribute(xml_node element, xml_attribute attribute, const std::vector<const char*>& read) {
    const bool isRepeated = std::ranges::any_of(
        read, [&](const char* other) { return EqualIgnoringCase(other, attribute.name()); });
    if (isRepeated) {
      Tell(Problem::RepeatedAttribute, attribute.name(), [&] {
        return Quoted(attribute) + " stands in " + Tag(element) + " before; only the first counts";
      });
    } else {
      Tell(
          Problem::UnreadAttribute, attribute.name(),
          [&] { return "nothing reads " + Quoted(attribute) + " of " + Tag(element); },
          [&] { return mInspection.NearestAbsent(NameKind::Attribute, element.name(), attribute.name()); });
    }
  }

  void TellElement(xml_node element) {
    const xml_node parent = element.parent();
    Tell(
        Problem::UnreadElement, element.name(),
        [&] { return "nothing reads " + Tag(element) + " in " + Tag(parent); },
        [&] { return mInspection.NearestAbsent(NameKind::Element, parent.name(), element.name()); });
  }

  void TellText(xml_node text) {
    if (!mInspection.IsWanted(Problem::UnreadText, mDocument.SourcePath)) return;
    constexpr std::size_t kShown = 30;
    std::string_view shown = text.value();
    shown.remove_prefix(shown.find_first_not_of(kBlanks));
    shown = shown.substr(0, std::min(shown.find_first_of("\r\n"), kShown));
    // The parser has shortened line ends, so the blanks before are counted in the text as it was.
    const std::size_t start = mDocument.OffsetOf(text.value()).value_or(0);
    mInspection.mTell({mDocument.PositionOf(mDocument.Original.find_first_not_of(kBlanks, start)),
                       "nothing reads the text \"" + std::string(shown) + "\" in " + Tag(text.parent()),
                       Problem::UnreadText});
  }

  template <class Message>
  void Tell(Problem problem, const char* at, Message message) {
    Tell(problem, at, message, [] { return std::string(); });
  }
  template <class Message, class Suggestion>
  void Tell(Problem problem, const char* at, Message message, Suggestion suggestion) {
    if (mInspection.IsWanted(problem, mDocument.SourcePath))
      mInspection.mTell({mDocument.Position(at), message(), problem, suggestion()});
  }

  static std::string Quoted(xml_attribute attribute) {
    return "the attribute \"" + std::string(attribute.name()) + "\"";
  }
  static std::string Tag(xml_node element) { return "<" + std::string(element.name()) + ">"; }

  Inspection& mInspection;
  const XMLDocumentData& mDocument;
};

void Inspection::EndFile(const XMLDocument& document, const XMLElement& root) {
  const XMLDocumentData& data = *root.mDocument;
  if (const std::string& doubt = document.EncodingDoubt(); !doubt.empty())
    Tell(Problem::DoubtfulEncoding, {data.SourcePath, 1, 1}, doubt);
  if (!data.IsInspected()) return;  // it was empty
  TellForbiddenCharacters(data);
  Walk(*this, data).Run(pugi::xml_node(root.Node()));
  if (mInspect) mInspect(data.SourcePath, root);
  if (data.KeepsText) EndText(data.SourcePath, data.Original);
}

void Inspection::EndText(const std::string& path, std::string_view text) {
  if (mInspectText) mInspectText(path, text);
}

void Inspection::TellForbiddenCharacters(const XMLDocumentData& document) {
  ForEachForbiddenCharacter(document.Original, [&](std::size_t offset, std::uint32_t character) {
    if (!IsWanted(Problem::ForbiddenCharacter, document.SourcePath)) return;
    mTell({document.PositionOf(offset),
           "XML has no character " + CharacterName(character) + "; other programs reject the file",
           Problem::ForbiddenCharacter});
  });
}

}  // namespace lwconfig
