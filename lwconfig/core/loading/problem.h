#pragma once

#include <cstddef>
#include <span>

namespace lwconfig {

enum class Severity { Warning, Error };

/// Every kind of problem in a configuration. Kinds that a loader rejects come first.
enum class Problem {
  UnreadableFile,
  MissingFolder,
  DamagedRegistry,
  NotWellFormed,
  MissingAttribute,
  InvalidValue,
  DuplicateKey,
  NotLoaded,

  IgnoredValue,
  DoubtfulValue,
  UnknownNumber,
  UnreadAttribute,
  RepeatedAttribute,
  UnreadElement,
  UnreadText,
  DoubtfulEncoding,
  ForbiddenCharacter,
  UnexpectedRoot,
  EmptyName,
  DuplicateName,
  DuplicateTemplate,
  MissingLayoutFile,
  ReservedFileName,
  MissingStyleSheet,
  MissingPhrases,
  UntranslatedText,
  UnknownText,
  MissingConfig,
  UnknownLayout,
  UnknownParent,
  ParentLoop,
  UnknownContents,
  UnknownProfile,
  UnknownPlugIn,
  UnknownCodeElement,
  UnknownComment,
  UnknownTemplate,
  UnknownPlaceholder,
  ImpossiblePattern,
  HiddenPattern,
  BlankInList,
  LineEnds,
  MalformedLine,
  Other,
};

inline constexpr std::size_t kProblemKinds = static_cast<std::size_t>(Problem::Other) + 1;

struct ProblemKind {
  lwconfig::Problem Problem;
  const char* Code;  // names the kind in messages and documentation
  lwconfig::Severity Severity;
  bool ConcernsLoaders = false;  // reported by any load, not only to an inspection
};

/// "warning" or "error".
const char* SeverityName(Severity severity);

/// Every kind of problem, in the order of `Problem`.
std::span<const ProblemKind> ProblemKinds();
const ProblemKind& KindOf(Problem problem);

}  // namespace lwconfig
