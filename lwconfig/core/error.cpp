#include <cerrno>

#include <lwconfig/core/error.h>

namespace lwconfig {

Error::Error(std::int32_t number, std::string description, CodePlace where)
    : mNumber(number), mDescription(std::move(description)), mWhere(where), mText(mDescription) {}

void Error::SetPosition(FilePosition position) {
  if (!mPosition.File.empty() || mPosition.Line != 0) return;
  mPosition = std::move(position);
  mText.clear();
  if (!mPosition.File.empty()) mText += mPosition.File + ":";
  if (mPosition.Line != 0) {
    mText += std::to_string(mPosition.Line) + ":" + std::to_string(mPosition.Column) + ":";
  }
  if (!mText.empty()) mText += " ";
  mText += mDescription;
}

Error FileError(const std::system_error& failure, std::string_view path) {
  std::int32_t number = kPathFileAccess;
  switch (failure.code().value()) {
    case ENOENT:
      number = kFileNotFound;
      break;
    case ENOTDIR:
      number = kPathNotFound;
      break;
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case EAGAIN:
      number = kPermissionDenied;
      break;
    case EINVAL:
    case ENAMETOOLONG:
      number = kBadFileName;
      break;
    default:
      break;
  }
  Error error(number, path.empty() ? failure.what() : failure.code().message());
  error.SetPosition({std::string(path), 0, 0});
  return error;
}

}  // namespace lwconfig
