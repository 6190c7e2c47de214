#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace lwconfig {

enum class PathErrorKind {
  Usage,       // the text asks for what cannot be done
  IsMethod,    // the member is a method and has no value
  IsProperty,  // the member is a property and cannot be called
  NotFound,    // the path leads to nothing
  Invalid,     // the configuration is not valid, or would no longer be
};

/// A path, or a change asked for by path, that cannot be carried out, with its place in the text of the
/// request.
class PathError : public std::exception {
 public:
  PathError(PathErrorKind kind, std::string text) : mKind(kind), mText(std::move(text)) {}

  /// The error of a name that is not among the existing ones. Suggests the nearest and lists it first.
  static PathError Unknown(PathErrorKind kind, const std::string& what, std::string_view wanted,
                           const std::string& where, std::vector<std::string> existing);

  /// Records the place: a byte of a word. The first place recorded stays.
  PathError& At(std::string_view word, std::size_t offset);

  /// Replaces the word of the place by a longer one that begins with it.
  PathError& Move(std::string_view word) {
    mWord = word;
    return *this;
  }

  /// Records the number of the error for programs.
  PathError& Numbered(std::int32_t number) {
    mNumber = number;
    return *this;
  }

  /// Records the change that caused the error, from 1, where it appears only after several.
  PathError& OfEdit(std::size_t edit) {
    mEdit = edit;
    return *this;
  }

  PathErrorKind Kind() const { return mKind; }
  const char* what() const noexcept override { return mText.c_str(); }
  /// The number of the error as the object model raises it; 0 where it has none.
  std::int32_t Number() const { return mNumber; }
  /// The change that caused the error, from 1; 0 for the one under way.
  std::size_t Edit() const { return mEdit; }
  /// The word with the error; empty where no word has it.
  const std::string& Word() const { return mWord; }
  /// The byte of the word, from 0.
  std::size_t Offset() const { return mOffset; }
  /// The names that exist in the place of an unknown one.
  const std::vector<std::string>& Existing() const { return mExisting; }

 private:
  PathErrorKind mKind;
  std::int32_t mNumber = 0;
  std::size_t mEdit = 0;
  std::string mText;
  std::string mWord;
  std::size_t mOffset = 0;
  std::vector<std::string> mExisting;
};

}  // namespace lwconfig
