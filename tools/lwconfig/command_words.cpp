#include <algorithm>

#include <tools/lwconfig/command_words.h>

#include <lwconfig/core/base/unicode.h>
#include <lwconfig/paths/path_error.h>

namespace lwconfig::tool {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

}  // namespace

void WordReader::SkipBlanks() {
  while (!AtEnd()) {
    if (mText.substr(mAt).starts_with("\\\n")) {
      mAt += 2;
    } else if (IsBlank(mText[mAt])) {
      ++mAt;
    } else if (mText[mAt] == '#') {
      mAt = std::min(mText.find('\n', mAt), mText.size());
    } else {
      return;
    }
  }
}

void WordReader::Put(Word& word) {
  word.Offsets.push_back(mAt);
  word.Text.push_back(mText[mAt++]);
}

void WordReader::ReadQuoted(char quote, Word& word) {
  const std::size_t open = mAt++;
  while (!AtEnd() && mText[mAt] != quote) {
    const bool escapes = quote == '"' && mText[mAt] == '\\' && mAt + 1 < mText.size() &&
                         std::string_view("\"\\$`\n").find(mText[mAt + 1]) != std::string_view::npos;
    if (escapes && mText[++mAt] == '\n') {
      ++mAt;
    } else {
      Put(word);
    }
  }
  if (!AtEnd()) {
    ++mAt;
  } else if (!mIsUnfinished) {
    throw PathError(PathErrorKind::Usage, "the quotation mark is not closed").At(mText, open);
  }
}

Word WordReader::ReadWord() {
  Word word;
  while (!AtEnd() && !IsBlank(mText[mAt]) && mText[mAt] != '\n') {
    const char c = mText[mAt];
    if (c == '"' || c == '\'') {
      ReadQuoted(c, word);
    } else if (c == '\\' && mAt + 1 < mText.size()) {
      if (mText[++mAt] == '\n') {
        ++mAt;
      } else {
        Put(word);
      }
    } else {
      Put(word);
    }
  }
  word.Offsets.push_back(mAt);
  return word;
}

bool WordReader::Next(std::vector<Word>& command) {
  command.clear();
  while (true) {
    SkipBlanks();
    const bool endsHere = AtEnd() || mText[mAt] == '\n';
    if (!endsHere) {
      command.push_back(ReadWord());
    } else if (!command.empty() || AtEnd()) {
      return !command.empty();
    } else {
      ++mAt;
    }
  }
}

std::vector<Word> WordReader::Unfinished(std::string_view text) {
  WordReader reader(text);
  reader.mIsUnfinished = true;
  std::vector<Word> words;
  reader.Next(words);
  // After a blank that is in no quotation marks another word begins.
  const bool endsInWord = !words.empty() && words.back().Offsets.back() == text.size();
  if (!endsInWord) words.push_back({"", {text.size()}});
  return words;
}

LineAndColumn PlaceOf(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  const auto lineStart = before.rfind('\n') + 1;  // 0 where there is none
  return {static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1,
          static_cast<int>(CountCharacters(before.substr(lineStart))) + 1};
}

}  // namespace lwconfig::tool
