#include <algorithm>
#include <cstddef>

#include <lwconfig/core/loading/problem.h>

namespace lwconfig {
namespace {

constexpr ProblemKind kKinds[] = {
    {Problem::UnreadableFile, "unreadable-file", Severity::Error},
    {Problem::MissingFolder, "missing-folder", Severity::Error},
    {Problem::DamagedRegistry, "damaged-registry", Severity::Error},
    {Problem::NotWellFormed, "not-well-formed", Severity::Error, true},
    {Problem::MissingAttribute, "missing-attribute", Severity::Error},
    {Problem::InvalidValue, "invalid-value", Severity::Error},
    {Problem::DuplicateKey, "duplicate-key", Severity::Error},
    {Problem::NotLoaded, "not-loaded", Severity::Error},

    {Problem::IgnoredValue, "ignored-value", Severity::Warning, true},
    {Problem::DoubtfulValue, "doubtful-value", Severity::Warning},
    {Problem::UnknownNumber, "unknown-number", Severity::Warning},
    {Problem::UnreadAttribute, "unread-attribute", Severity::Warning},
    {Problem::RepeatedAttribute, "repeated-attribute", Severity::Warning, true},
    {Problem::UnreadElement, "unread-element", Severity::Warning},
    {Problem::UnreadText, "unread-text", Severity::Warning},
    {Problem::DoubtfulEncoding, "doubtful-encoding", Severity::Warning},
    {Problem::ForbiddenCharacter, "forbidden-character", Severity::Warning},
    {Problem::UnexpectedRoot, "unexpected-root", Severity::Warning},
    {Problem::EmptyName, "empty-name", Severity::Warning},
    {Problem::DuplicateName, "duplicate-name", Severity::Warning},
    {Problem::DuplicateTemplate, "duplicate-template", Severity::Warning, true},
    {Problem::MissingLayoutFile, "missing-layout-file", Severity::Warning},
    {Problem::ReservedFileName, "reserved-file-name", Severity::Warning},
    {Problem::MissingStyleSheet, "missing-style-sheet", Severity::Warning},
    {Problem::MissingPhrases, "missing-phrases", Severity::Warning},
    {Problem::UntranslatedText, "untranslated-text", Severity::Warning},
    {Problem::UnknownText, "unknown-text", Severity::Warning},
    {Problem::MissingConfig, "missing-config", Severity::Warning},
    {Problem::UnknownLayout, "unknown-layout", Severity::Warning},
    {Problem::UnknownParent, "unknown-parent", Severity::Warning},
    {Problem::ParentLoop, "parent-loop", Severity::Warning, true},
    {Problem::UnknownContents, "unknown-contents", Severity::Warning},
    {Problem::UnknownProfile, "unknown-profile", Severity::Warning},
    {Problem::UnknownPlugIn, "unknown-plug-in", Severity::Warning},
    {Problem::UnknownCodeElement, "unknown-code-element", Severity::Warning},
    {Problem::UnknownComment, "unknown-comment", Severity::Warning},
    {Problem::UnknownTemplate, "unknown-template", Severity::Warning},
    {Problem::UnknownPlaceholder, "unknown-placeholder", Severity::Warning},
    {Problem::ImpossiblePattern, "impossible-pattern", Severity::Warning},
    {Problem::HiddenPattern, "hidden-pattern", Severity::Warning},
    {Problem::BlankInList, "blank-in-list", Severity::Warning},
    {Problem::LineEnds, "line-ends", Severity::Warning},
    {Problem::MalformedLine, "malformed-line", Severity::Warning},
    {Problem::Other, "other", Severity::Warning, true},
};

constexpr bool IsInOrder() {
  std::size_t at = 0;
  return std::ranges::all_of(
             kKinds, [&](const ProblemKind& kind) { return kind.Problem == static_cast<Problem>(at++); }) &&
         at == kProblemKinds;
}
static_assert(IsInOrder(), "one row for each problem, in their order");

}  // namespace

const char* SeverityName(Severity severity) {
  return severity == Severity::Error ? "error" : "warning";
}

std::span<const ProblemKind> ProblemKinds() {
  return kKinds;
}

const ProblemKind& KindOf(Problem problem) {
  return kKinds[static_cast<std::size_t>(problem)];
}

}  // namespace lwconfig
