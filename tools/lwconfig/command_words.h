#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lwconfig::tool {

/// One word of a command.
struct Word {
  std::string Text;
  std::vector<std::size_t> Offsets;  // in the source, of each byte of the text and of the end

  std::size_t Offset(std::size_t at) const { return Offsets[at < Offsets.size() ? at : Offsets.size() - 1]; }
};

/// The words of a text of commands as a shell reads them: separated by blanks; '...' is taken as it is; in
/// "..." and outside a backslash takes the next character as it is, in "..." only before ", \, $ and `; a
/// backslash at the end of a line continues it; # at the start of a word begins a comment. Nothing is
/// expanded. Line ends separate commands, but not inside quotation marks.
class WordReader {
 public:
  explicit WordReader(std::string_view text) : mText(text) {}

  /// The words of the next command that has any; false at the end. A text that ends inside quotation marks is
  /// a `PathError` of usage there, unless it may be unfinished: the last word is then what there is of it.
  bool Next(std::vector<Word>& command);

  /// Takes a text that is still being typed: unfinished, its last word being what follows the last blank.
  static std::vector<Word> Unfinished(std::string_view text);

 private:
  bool AtEnd() const { return mAt == mText.size(); }
  void SkipBlanks();
  Word ReadWord();
  void ReadQuoted(char quote, Word& word);
  void Put(Word& word);

  std::string_view mText;
  std::size_t mAt = 0;
  bool mIsUnfinished = false;
};

/// Line and column, in characters, of a byte of the text.
struct LineAndColumn {
  int Line;
  int Column;
};
LineAndColumn PlaceOf(std::string_view text, std::size_t offset);

}  // namespace lwconfig::tool
