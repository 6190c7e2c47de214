#include <lwconfig/core/base/nearest.h>
#include <lwconfig/paths/path_error.h>

namespace lwconfig {

PathError PathError::Unknown(PathErrorKind kind, const std::string& what, std::string_view wanted,
                             const std::string& where, std::vector<std::string> existing) {
  const std::string suggestion = Suggestion(wanted, existing);
  PathError error(kind, "there is no " + what + " '" + std::string(wanted) + "'" + where + suggestion);
  error.mExisting = std::move(existing);
  return error;
}

PathError& PathError::At(std::string_view word, std::size_t offset) {
  if (mWord.empty()) {
    mWord = word;
    mOffset = offset;
  }
  return *this;
}

}  // namespace lwconfig
