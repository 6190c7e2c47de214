#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <lwconfig/core/registry_text/registry_data.h>

namespace lwconfig {

/// The first lines of the two versions of the registry-editor format. In the older version, hexadecimal texts
/// are in the system's 8-bit encoding instead of UTF-16.
inline constexpr std::string_view kRegistryHeader = "Windows Registry Editor Version 5.00";
inline constexpr std::string_view kOldRegistryHeader = "REGEDIT4";

/// One statement of a registry file with its position in the text.
struct RegistryStatement {
  using Kinds = RegistryChange::Kinds;
  Kinds Kind = Kinds::Key;
  /// The whole path of a key, beginning with its hive; refers to the text being read.
  std::string_view Key;
  std::string Name;
  RegistryValue Value;
  std::size_t Begin = 0;
  std::size_t DataBegin = 0;
  std::size_t DataEnd = 0;
  /// The end of the statement's last line, before its line break.
  std::size_t End = 0;
};

/// Reads a registry text statement by statement. Throws `RegistryFormatError` with the place of
/// the first fault.
class RegistryReader {
 public:
  /// `text` is UTF-8 and must outlive the reader; `file` names the source in errors.
  RegistryReader(std::string_view text, std::string file);

  /// Whether the text is in the older version.
  bool IsOld() const { return mIsOld; }
  /// Reads the next statement into `statement`; false at the end.
  bool Next(RegistryStatement& statement);
  /// Throws `RegistryFormatError` with `description` for the position.
  [[noreturn]] void FailAt(std::size_t position, const std::string& message) const;

 private:
  bool AtEnd() const { return mPosition == mText.size(); }
  bool At(char c) const { return !AtEnd() && mText[mPosition] == c; }
  bool AtLineEnd() const;
  bool Take(char c);
  bool TakeWord(std::string_view word);
  void Require(char c);
  std::size_t LineEnd() const;
  void SkipBlanks();
  void SkipToStatement();
  void ReadHeader();
  void ReadKey(RegistryStatement& statement);
  void ReadData(RegistryStatement& statement);
  std::size_t ReadStatementEnd();
  std::string ReadQuoted();
  std::uint32_t ReadHexNumber(int mostDigits);
  std::string ReadBytes();
  RegistryValue ValueOf(std::uint32_t type, const std::string& bytes) const;
  [[noreturn]] void Expected(const std::string& what) const;

  std::string_view mText;
  std::string mFile;
  std::size_t mPosition = 0;
  bool mIsOld = false;
  bool mBelowKey = false;
};

/// The text of a registry file: UTF-16 with a byte-order mark, else as `Utf8From8Bit`. A UTF-8 byte-order
/// mark is kept.
std::string RegistryFileText(std::string bytes);

}  // namespace lwconfig
