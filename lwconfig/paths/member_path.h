#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <lwconfig/paths/path_error.h>

namespace lwconfig {

/// Names an item of a collection: by key, or by position from 1, or from the end with -1.
using KeyOrPosition = std::variant<std::string, std::int32_t>;

/// A value inside a path: a position, or a text. A bare whole number is a position, anything in quotation
/// marks a text; a quotation mark inside is written twice.
struct PathValue {
  KeyOrPosition Value{};
  std::size_t Offset = 0;
};

/// One step of a path: a member, with arguments where it takes some, or an item of a collection.
struct PathStep {
  std::string Name{};                  // empty for an item
  std::vector<PathValue> Arguments{};  // of an item its key or position
  std::size_t Offset = 0;              // of the name, or of the bracket

  bool IsItem() const { return Name.empty(); }
};

/// A path from the root to a member: `PageTemplates["House style"].PageLayouts[-1].Name`,
/// `PageTemplates[1].Phrase("Method")`. Negative positions count from the end. An empty text is the root.
struct MemberPath {
  std::string Text;
  std::vector<PathStep> Steps;
};

/// Throws a `PathError` of the kind `Usage` at the first character that does not belong.
MemberPath ParsePath(std::string_view text);

/// The value that the text is when it stands alone, such as that of an option. Never fails: a text that is
/// no value in quotation marks and no number is taken as it is.
KeyOrPosition ParseValue(const std::string& text);

/// A key as a path has it between brackets: in quotation marks, the given one or `"`, where it needs them or
/// one is given; those in the key are doubled.
std::string WrittenKey(std::string_view key, char quote = '\0');

/// Where the unfinished step at the end of a path begins, for completion.
struct UnfinishedPath {
  std::string Base{};     // the whole steps before
  std::string Partial{};  // what there is of the name or key
  bool IsItem = false;
  char Quote = '\0';  // that the key begins with
};
UnfinishedPath SplitUnfinished(std::string_view text);

}  // namespace lwconfig
