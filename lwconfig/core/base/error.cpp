#include <lwconfig/core/base/error.h>

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

}  // namespace lwconfig
