#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <tools/lwconfig/check/rules.h>

#include <lwconfig/core/attribute_reader.h>
#include <lwconfig/core/nearest.h>
#include <lwconfig/core/text.h>
#include <lwconfig/externaldocs/wildcard.h>

namespace lwconfig::tool {
namespace {

constexpr std::string_view kDelimiter = "%%";

/// Whether every name that the later pattern matches is matched by the earlier one: it is a beginning of the
/// other, followed by any run of characters.
bool Hides(std::string_view earlier, std::string_view later) {
  if (!earlier.ends_with('*')) return false;
  earlier.remove_suffix(1);
  return earlier.find_first_of("*?#[") == std::string_view::npos && later.starts_with(earlier);
}

void CheckSourcePatterns(const RuleInput& input) {
  std::vector<std::string> earlier;
  for (const XMLElement source : input.Root.Children()) {
    const char* pattern =
        source.Name() == "ExternalDoc" ? AttributeReader(source).Find("Namespace") : nullptr;
    if (pattern == nullptr) continue;
    if (!IsPossibleWildcard(pattern)) {
      input.Inspection.Tell(Problem::ImpossiblePattern, source, "Namespace",
                            "no name can match \"" + std::string(pattern) + "\"");
    }
    for (const std::string& first : earlier) {
      if (!Hides(first, pattern) || EqualIgnoringCase(first, pattern)) continue;
      input.Inspection.Tell(Problem::HiddenPattern, source, "Namespace",
                            "the source is never used: \"" + first + "\" stands before and matches as much");
      break;
    }
    if (Hides(pattern, pattern)) earlier.emplace_back(pattern);
  }
}

void CheckMemberPatterns(const RuleInput& input) {
  for (const XMLElement comment : input.Root.Children()) {
    const char* pattern = comment.Name() == "MC" ? AttributeReader(comment).Find("MemberName") : nullptr;
    if (pattern == nullptr) continue;
    const std::string_view name = pattern;
    if (!name.empty() && name.find_first_of(" \t\r\n") == std::string_view::npos) continue;
    input.Inspection.Tell(Problem::ImpossiblePattern, comment, "MemberName",
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
    input.Inspection.Tell(Problem::UnknownPlaceholder, e, attribute,
                          isClosed ? "nothing fills the placeholder \"%%" + name + "%%\""
                                   : "a placeholder begins here and does not end: \"%%" + name + "\"",
                          isClosed ? Nearest(name, known) : std::string());
    // The operations take the second delimiter of a name that nothing fills for the first of the next.
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

/// A name between two single percent signs that is not the one that is replaced.
void CheckCommentFiles(const RuleInput& input) {
  constexpr std::string_view kNetPath = "NetPath";
  for (const XMLElement file : input.Root.Children()) {
    const char* path = AttributeReader(file).Find("CommentFilePath");
    if (path == nullptr) continue;
    const auto pieces = Split(path, "%");
    for (std::size_t at = 1; at + 1 < pieces.size(); at += 2) {
      if (EqualIgnoringCase(pieces[at], kNetPath)) continue;
      input.Inspection.Tell(Problem::UnknownPlaceholder, file, "CommentFilePath",
                            "nothing fills the placeholder \"%" + std::string(pieces[at]) + "%\"",
                            Nearest(pieces[at], {std::string(kNetPath)}));
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

}  // namespace lwconfig::tool
