#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <lwconfig/checking/rules.h>
#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/externaldocs/wildcard.h>

namespace lwconfig {
namespace {

constexpr std::string_view kDelimiter = "%%";

/// The patterns of a prefix followed by any run of characters, without that "*".
class Beginnings {
 public:
  void Add(std::string_view pattern) {
    if (pattern.empty() || pattern.find_first_of("*?#[") != pattern.size() - 1 || !pattern.ends_with('*'))
      return;
    pattern.remove_suffix(1);
    if (pattern.size() <= kLongest) mKnown.emplace(pattern);
  }
  /// A pattern that matches every name that this one does, if there is one.
  std::optional<std::string> Covering(std::string_view pattern) const {
    for (std::size_t length = 0; length <= std::min(pattern.size(), kLongest); ++length) {
      const std::string beginning(pattern.substr(0, length));
      if (mKnown.contains(beginning)) return beginning + "*";
    }
    return std::nullopt;
  }

 private:
  static constexpr std::size_t kLongest = 200;  // names of namespaces are shorter
  std::unordered_set<std::string> mKnown;
};

void CheckSourcePatterns(const RuleInput& input) {
  Beginnings earlier;
  for (const XMLElement source : input.Root.Children()) {
    const char* pattern =
        source.Name() == "ExternalDoc" ? AttributeReader(source).Find("Namespace") : nullptr;
    if (pattern == nullptr) continue;
    if (!IsPossibleWildcard(pattern)) {
      input.Inspection.Report(Problem::ImpossiblePattern, source, "Namespace",
                              "no name can match \"" + std::string(pattern) + "\"");
    }
    // A repeated pattern is a repeated key, which was reported.
    const auto covering = earlier.Covering(pattern);
    if (covering && !EqualIgnoringCase(*covering, pattern)) {
      input.Inspection.Report(
          Problem::HiddenPattern, source, "Namespace",
          "the source is never used: \"" + *covering + "\" comes first and matches as much");
    }
    earlier.Add(pattern);
  }
}

void CheckMemberPatterns(const RuleInput& input) {
  for (const XMLElement comment : input.Root.Children()) {
    const char* pattern = comment.Name() == "MC" ? AttributeReader(comment).Find("MemberName") : nullptr;
    if (pattern == nullptr) continue;
    const std::string_view name = pattern;
    if (!name.empty() && name.find_first_of(" \t\r\n") == std::string_view::npos) continue;
    input.Inspection.Report(Problem::ImpossiblePattern, comment, "MemberName",
                            "no member can have the name \"" + std::string(name) + "\"");
  }
}

/// The placeholders of one format.
void CheckFormat(const RuleInput& input, const XMLElement& e, const char* attribute,
                 const std::vector<std::string>& known) {
  const char* text = AttributeReader(e).Find(attribute);
  if (text == nullptr) return;
  const auto pieces = Split(text, kDelimiter);
  const auto isKnown = [&](std::size_t at) {
    return at + 1 < pieces.size() && std::ranges::any_of(known, [&](const std::string& candidate) {
             return EqualIgnoringCase(candidate, pieces[at]);
           });
  };
  for (std::size_t at = 1; at < pieces.size(); at += 2) {
    if (isKnown(at)) continue;
    const std::string name(pieces[at]);
    const bool isClosed = at + 1 < pieces.size();
    input.Inspection.Report(Problem::UnknownPlaceholder, e, attribute,
                            isClosed ? "nothing fills the placeholder \"%%" + name + "%%\""
                                     : "a placeholder begins here and does not end: \"%%" + name + "\"",
                            [&] { return isClosed ? Nearest(name, known) : std::string(); });
    // Match as the operations do: they take the second delimiter of an unknown name for the first
    // of the next.
    if (isKnown(at + 1)) --at;
  }
}

void CheckSourceFormats(const RuleInput& input) {
  const auto ofObjects = ExternalDocs::ObjectPlaceholders();
  const auto ofMembers = ExternalDocs::MemberPlaceholders();
  for (const XMLElement source : input.Root.Children()) {
    if (source.Name() != "ExternalDoc") continue;
    const auto children = source.Children();
    for (const char* format : {"URLFormat", "HTMLHelp1Link", "Help2Link"}) {
      CheckFormat(input, source, format, ofObjects);
      if (children.begin() != children.end()) CheckFormat(input, *children.begin(), format, ofMembers);
    }
  }
}

/// A name between two single percent signs other than the one that is replaced.
void CheckCommentFiles(const RuleInput& input) {
  constexpr std::string_view kNetPath = "NetPath";
  for (const XMLElement file : input.Root.Children()) {
    const char* path = AttributeReader(file).Find("CommentFilePath");
    if (path == nullptr) continue;
    const auto pieces = Split(path, "%");
    for (std::size_t at = 1; at + 1 < pieces.size(); at += 2) {
      if (EqualIgnoringCase(pieces[at], kNetPath)) continue;
      input.Inspection.Report(Problem::UnknownPlaceholder, file, "CommentFilePath",
                              "nothing fills the placeholder \"%" + std::string(pieces[at]) + "%\"",
                              [&] { return Nearest(pieces[at], {std::string(kNetPath)}); });
    }
  }
}

}  // namespace

void CheckPatterns(const RuleInput& input) {
  if (input.Part == Part::ExternalDocs) CheckSourcePatterns(input);
  if (input.Part == Part::ModelComments) CheckMemberPatterns(input);
}

void CheckPlaceholders(const RuleInput& input) {
  if (input.Part == Part::ExternalDocs) CheckSourceFormats(input);
  if (input.Part == Part::CommentFiles) CheckCommentFiles(input);
}

}  // namespace lwconfig
