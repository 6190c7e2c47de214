#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include <tools/lwconfig/reporter.h>

namespace lwconfig::tool {

/// Something in a command that cannot be done, with the place of it in one of the command's words.
class Fault : public std::exception {
 public:
  Fault(ExitStatus status, std::string text) : mStatus(status), mText(std::move(text)) {}

  /// The fault of a name that is none of those that exist; suggests the nearest.
  static Fault Unknown(ExitStatus status, const std::string& what, std::string_view wanted,
                       const std::string& where, std::vector<std::string> existing);

  /// The fault is at this byte of this word. The first place recorded stays.
  Fault& At(std::string_view word, std::size_t offset);

  /// The word of the fault is only the beginning of this one.
  Fault& Move(std::string_view word) {
    mWord = word;
    return *this;
  }

  /// The number by which programs know such a fault; 0 where they know of none.
  Fault& Numbered(std::int32_t number) {
    mNumber = number;
    return *this;
  }

  /// The fault came to light after several edits: in this one of them, from 1.
  Fault& OfEdit(std::size_t edit) {
    mEdit = edit;
    return *this;
  }

  std::size_t Edit() const { return mEdit; }
  std::int32_t Number() const { return mNumber; }
  ExitStatus Status() const { return mStatus; }
  const char* what() const noexcept override { return mText.c_str(); }
  /// The word with the fault; empty where it is in none.
  const std::string& Word() const { return mWord; }
  std::size_t Offset() const { return mOffset; }
  /// What there is in the place of what was asked for.
  const std::vector<std::string>& Existing() const { return mExisting; }

 private:
  ExitStatus mStatus;
  std::int32_t mNumber = 0;
  std::size_t mEdit = 0;
  std::string mText;
  std::string mWord;
  std::size_t mOffset = 0;
  std::vector<std::string> mExisting;
};

}  // namespace lwconfig::tool
