#include <algorithm>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/registry_text/registry_reader.h>

// A registry file.
//
//   Windows Registry Editor Version 5.00       or REGEDIT4, the older version
//   ; comment, on its own line or at the end of a statement
//   [HKEY_CURRENT_USER\Software\Name]          a key; [-HKEY...] deletes it
//   @="default value"
//   "Name"="C:\\Folder"                        a text; \" and \\ in quotes
//   "Name"=dword:0000001f                      a number
//   "Name"=hex(7):41,00,\                      bytes of a type, lines joined by a backslash; hex: is type 3
//     00,00,00,00
//   "Name"=-                                   deletes the value

namespace lwconfig {
namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = AsciiLower(c);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool BeginsCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xc0U) != 0x80;
}

std::string_view TrimmedRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(" \t\r") + 1);
}

}  // namespace

RegistryReader::RegistryReader(std::string_view text, std::string file)
    : mText(text), mFile(std::move(file)) {
  ReadHeader();
}

bool RegistryReader::Next(RegistryStatement& statement) {
  SkipToStatement();
  if (AtEnd()) return false;
  statement.Begin = mPosition;
  if (Take('[')) {
    ReadKey(statement);
  } else if (At('@') || At('"')) {
    if (!mBelowKey) Expected("a key in square brackets before the first value");
    statement.Name = Take('@') ? std::string() : ReadQuoted();
    SkipBlanks();
    Require('=');
    ReadData(statement);
  } else {
    Expected("a key, a value or a comment");
  }
  statement.End = ReadStatementEnd();
  return true;
}

void RegistryReader::ReadHeader() {
  if (mText.starts_with(kByteOrderMark)) mPosition = kByteOrderMark.size();
  const std::string_view line = TrimmedRight(mText.substr(mPosition, LineEnd() - mPosition));
  mIsOld = line == kOldRegistryHeader;
  if (!mIsOld && line != kRegistryHeader) {
    Expected('"' + std::string(kRegistryHeader) + "\" or \"" + std::string(kOldRegistryHeader) + '"');
  }
  mPosition = LineEnd();
}

void RegistryReader::ReadKey(RegistryStatement& statement) {
  using Kinds = RegistryStatement::Kinds;
  statement.Kind = Take('-') ? Kinds::DeletedKey : Kinds::Key;
  // Close at the last bracket of the line: the name of a key may contain brackets.
  const std::string_view line = mText.substr(mPosition, LineEnd() - mPosition);
  const std::size_t length = line.rfind(']');
  if (length == std::string_view::npos) {
    mPosition += line.size();
    Expected("']'");
  }
  statement.Key = line.substr(0, length);
  if (statement.Key.empty()) Expected("the name of a key");
  mPosition += length + 1;
  mBelowKey = true;
}

void RegistryReader::ReadData(RegistryStatement& statement) {
  using Kinds = RegistryStatement::Kinds;
  SkipBlanks();
  statement.Kind = Kinds::Value;
  statement.DataBegin = mPosition;
  if (Take('-')) {
    statement.Kind = Kinds::DeletedValue;
  } else if (At('"')) {
    statement.Value = {1, ReadQuoted()};
  } else if (TakeWord("dword:")) {
    statement.Value = {4, ReadHexNumber(8)};
  } else if (TakeWord("hex")) {
    std::uint32_t type = 3;
    if (Take('(')) {
      type = ReadHexNumber(8);
      Require(')');
    }
    Require(':');
    statement.Value = ValueOf(type, ReadBytes());
  } else {
    Expected("a text in quotes, dword:, hex: or -");
  }
  statement.DataEnd = mPosition;
}

std::size_t RegistryReader::ReadStatementEnd() {
  SkipBlanks();
  if (At(';')) mPosition = LineEnd();
  if (!AtLineEnd()) Expected("the end of the line");
  return mPosition;
}

std::string RegistryReader::ReadQuoted() {
  const std::size_t opening = mPosition++;
  std::string text;
  for (;;) {
    const std::size_t end = mText.find_first_of("\"\\", mPosition);
    if (end == std::string_view::npos) {
      FailAt(opening, "expected a closing quote for this one, found the end of the file");
    }
    text += mText.substr(mPosition, end - mPosition);
    mPosition = end;
    if (Take('"')) return text;
    ++mPosition;
    if (!At('"') && !At('\\')) Expected("a quote or another backslash after a backslash");
    text += mText[mPosition++];
  }
}

std::uint32_t RegistryReader::ReadHexNumber(int mostDigits) {
  std::uint32_t number = 0;
  int digits = 0;
  for (; digits < mostDigits && !AtEnd() && HexDigit(mText[mPosition]) >= 0; ++digits) {
    number = number << 4 | static_cast<std::uint32_t>(HexDigit(mText[mPosition++]));
  }
  if (digits == 0) Expected("a hexadecimal digit");
  return number;
}

std::string RegistryReader::ReadBytes() {
  std::string bytes;
  for (;;) {
    SkipBlanks();
    while (Take('\\')) {
      SkipBlanks();
      if (!AtLineEnd()) Expected("the end of the line after a backslash");
      mPosition = std::min(mText.find('\n', mPosition), mText.size() - 1) + 1;
      SkipBlanks();
    }
    if (bytes.empty() && (AtLineEnd() || At(';'))) return bytes;
    bytes += static_cast<char>(ReadHexNumber(2));
    if (!Take(',')) return bytes;
  }
}

RegistryValue RegistryReader::ValueOf(std::uint32_t type, const std::string& bytes) const {
  switch (type) {
    case 1:
    case 2: {
      std::string text = mIsOld ? Utf8From8Bit(bytes) : Utf8FromUnits(bytes, 2, true);
      text.resize(text.find_last_not_of('\0') + 1);
      return {type, std::move(text)};
    }
    case 4: {
      std::uint32_t number = 0;
      for (std::size_t i = 0; i < std::min<std::size_t>(bytes.size(), 4); ++i) {
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
      }
      return {type, number};
    }
    default:
      return {type, std::vector<std::uint8_t>(bytes.begin(), bytes.end())};
  }
}

bool RegistryReader::AtLineEnd() const {
  const std::string_view rest = mText.substr(mPosition);
  return rest.empty() || rest == "\r" || rest.starts_with('\n') || rest.starts_with("\r\n");
}

bool RegistryReader::Take(char c) {
  if (!At(c)) return false;
  ++mPosition;
  return true;
}

bool RegistryReader::TakeWord(std::string_view word) {
  if (!EqualIgnoringCase(mText.substr(mPosition, word.size()), word)) return false;
  mPosition += word.size();
  return true;
}

void RegistryReader::Require(char c) {
  if (!Take(c)) Expected({'\'', c, '\''});
}

std::size_t RegistryReader::LineEnd() const {
  const std::size_t end = std::min(mText.find('\n', mPosition), mText.size());
  return end > mPosition && mText[end - 1] == '\r' ? end - 1 : end;
}

void RegistryReader::SkipBlanks() {
  while (At(' ') || At('\t')) ++mPosition;
}

void RegistryReader::SkipToStatement() {
  for (;;) {
    mPosition = std::min(mText.find_first_not_of(" \t\r\n", mPosition), mText.size());
    if (!At(';')) return;
    mPosition = LineEnd();
  }
}

void RegistryReader::FailAt(std::size_t position, const std::string& message) const {
  const std::size_t begin = mText.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  const std::string_view before = mText.substr(begin, position - begin);
  const std::string_view line = before.substr(before.rfind('\n') + 1);
  throw RegistryFormatError(mFile, 1 + static_cast<int>(std::ranges::count(before, '\n')),
                            1 + static_cast<int>(std::ranges::count_if(line, BeginsCharacter)), message);
}

void RegistryReader::Expected(const std::string& what) const {
  std::string found;
  if (AtEnd()) {
    found = "the end of the file";
  } else if (AtLineEnd()) {
    found = "the end of the line";
  } else if (static_cast<unsigned char>(mText[mPosition]) < ' ') {
    found = "a control character";
  } else {
    std::size_t end = mPosition + 1;
    while (end < mText.size() && !BeginsCharacter(mText[end])) ++end;
    found.append(1, '\'').append(mText.substr(mPosition, end - mPosition)).append(1, '\'');
  }
  FailAt(mPosition, "expected " + what + ", found " + found);
}

std::string RegistryFileText(std::string bytes) {
  const std::string_view view = bytes;
  if (view.starts_with("\xff\xfe")) return Utf8FromUnits(view.substr(2), 2, true);
  if (view.starts_with("\xfe\xff")) return Utf8FromUnits(view.substr(2), 2, false);
  return Utf8From8Bit(std::move(bytes));
}

}  // namespace lwconfig
