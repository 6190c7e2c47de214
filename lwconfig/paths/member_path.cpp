#include <algorithm>
#include <charconv>
#include <optional>

#include <lwconfig/paths/member_path.h>

namespace lwconfig {
namespace {

bool IsQuote(char c) {
  return c == '"' || c == '\'';
}
bool IsNamePart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

std::string_view WithoutBlanks(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// Digits with a minus sign or without.
bool IsWholeNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<std::int32_t> Position(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

class Parser {
 public:
  explicit Parser(std::string_view text) : mText(text) {}

  std::vector<PathStep> Steps() {
    std::vector<PathStep> steps;
    while (!AtEnd()) {
      if (Peek() == '[' && !steps.empty()) {
        steps.push_back(ItemStep());
      } else if (Peek() == '(' && !steps.empty() && !steps.back().IsItem() && mText[mAt - 1] != ')') {
        steps.back().Arguments = Values(')');
      } else {
        if (!steps.empty() && !Take('.')) Fail("'.' or '[' was expected");
        steps.push_back(NameStep());
      }
    }
    return steps;
  }

 private:
  bool AtEnd() const { return mAt == mText.size(); }
  char Peek() const { return AtEnd() ? '\0' : mText[mAt]; }
  bool Take(char c) {
    if (Peek() != c) return false;
    ++mAt;
    return true;
  }
  void SkipBlanks() {
    while (Take(' ')) {
    }
  }
  [[noreturn]] void FailAt(std::size_t offset, const std::string& text) const {
    throw PathError(PathErrorKind::Usage, text).At(mText, offset);
  }
  [[noreturn]] void Fail(const std::string& text) const {
    if (AtEnd()) FailAt(mAt, text + ", the path ends here");
    auto length = std::size_t{1};
    while (mAt + length < mText.size() && (mText[mAt + length] & '\xC0') == '\x80') ++length;
    FailAt(mAt, text + ", '" + std::string(mText.substr(mAt, length)) + "' was found");
  }

  PathStep NameStep() {
    PathStep step;
    step.Offset = mAt;
    while (IsNamePart(Peek())) step.Name.push_back(mText[mAt++]);
    if (step.Name.empty()) Fail("a name was expected");
    return step;
  }

  PathStep ItemStep() {
    PathStep step;
    step.Offset = mAt;
    step.Arguments = Values(']');
    if (step.Arguments.size() != 1) FailAt(step.Offset, "one key or position was expected in the brackets");
    return step;
  }

  /// The values between the bracket at this place and the one that closes it.
  std::vector<PathValue> Values(char close) {
    const std::size_t open = mAt++;
    std::vector<PathValue> values;
    SkipBlanks();
    if (close == ')' && Take(close)) return values;
    do {
      SkipBlanks();
      values.push_back(IsQuote(Peek()) ? Quoted() : Bare(close));
      SkipBlanks();
    } while (close == ')' && Take(','));
    if (AtEnd()) FailAt(open, std::string("'") + mText[open] + "' is not closed");
    if (!Take(close)) Fail(std::string("'") + close + "' was expected");
    return values;
  }

  PathValue Quoted() {
    PathValue value;
    value.Offset = mAt;
    const char quote = mText[mAt++];
    std::string text;
    for (;; ++mAt) {
      if (AtEnd()) FailAt(value.Offset, "the quotation mark is not closed");
      if (Peek() == quote) {
        ++mAt;
        if (Peek() != quote) break;
      }
      text.push_back(mText[mAt]);
    }
    value.Value = std::move(text);
    return value;
  }

  PathValue Bare(char close) {
    const std::size_t start = mAt;
    while (!AtEnd() && Peek() != close && !(close == ')' && Peek() == ',') && !IsQuote(Peek()) &&
           Peek() != '[')
      ++mAt;
    const auto text = WithoutBlanks(mText.substr(start, mAt - start));
    if (text.empty()) Fail(close == ']' ? "a key or position was expected" : "an argument was expected");
    if (!IsWholeNumber(text)) return {std::string(text), start};
    const auto position = Position(text);
    if (!position) FailAt(start, "the number " + std::string(text) + " is too large");
    return {*position, start};
  }

  const std::string_view mText;
  std::size_t mAt = 0;
};

}  // namespace

MemberPath ParsePath(std::string_view text) {
  return {std::string(text), Parser(text).Steps()};
}

KeyOrPosition ParseValue(const std::string& text) {
  if (const auto position = Position(text); position && IsWholeNumber(text)) return *position;
  const bool isQuoted = text.size() >= 2 && IsQuote(text.front()) && text.back() == text.front();
  if (!isQuoted) return text;
  std::string inside;
  for (std::size_t at = 1; at + 1 < text.size(); ++at) {
    inside.push_back(text[at]);
    const bool isTwice = text[at] == text.front() && text[at + 1] == text.front();
    if (isTwice && at + 2 < text.size()) ++at;
  }
  return inside;
}

std::string WrittenKey(std::string_view key, char quote) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const bool isNumber = std::ranges::all_of(key.substr(key.starts_with('-') ? 1 : 0), isDigit);
  const bool isSafe = !isNumber && !key.starts_with(' ') && !key.ends_with(' ') &&
                      key.find_first_of("\"'[]") == std::string_view::npos;
  if (quote == '\0') {
    if (isSafe) return std::string(key);
    quote = '"';
  }
  std::string written(1, quote);
  for (const char c : key) written.append(c == quote ? 2 : 1, c);
  return written + quote;
}

UnfinishedPath SplitUnfinished(std::string_view text) {
  std::size_t begin = 0;  // of the step under way
  char close = '\0';      // what ends the brackets that are open
  char quote = '\0';      // the open quotation mark
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (quote != '\0') {
      if (c == quote) quote = '\0';
    } else if (close != '\0') {
      if (IsQuote(c)) quote = c;
      if (c == close) close = '\0';
    } else if (c == '[' || c == '(') {
      close = c == '[' ? ']' : ')';
      begin = at;
    } else if (c == '.') {
      begin = at;
    }
  }
  UnfinishedPath unfinished;
  const bool isWhole = close == '\0' && (text.ends_with(']') || text.ends_with(')'));
  unfinished.Base = isWhole ? text : text.substr(0, begin);
  if (isWhole) return unfinished;
  std::string_view partial = text.substr(begin);
  unfinished.IsItem = partial.starts_with('[');
  if (partial.starts_with('[') || partial.starts_with('.')) partial.remove_prefix(1);
  if (unfinished.IsItem && !partial.empty() && IsQuote(partial.front())) {
    unfinished.Quote = partial.front();
    partial.remove_prefix(1);
  }
  unfinished.Partial = partial;
  return unfinished;
}

}  // namespace lwconfig
