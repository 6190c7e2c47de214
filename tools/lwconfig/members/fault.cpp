#include <tools/lwconfig/members/fault.h>

#include <lwconfig/core/nearest.h>

namespace lwconfig::tool {

Fault Fault::Unknown(ExitStatus status, const std::string& what, std::string_view wanted,
                     const std::string& where, std::vector<std::string> existing) {
  std::string text = "there is no " + what + " '" + std::string(wanted) + "'" + where;
  const std::string nearest = Nearest(wanted, existing);
  if (!nearest.empty()) text += "; did you mean '" + nearest + "'?";
  Fault fault(status, text);
  fault.mExisting = std::move(existing);
  return fault;
}

Fault& Fault::At(std::string_view word, std::size_t offset) {
  if (mWord.empty()) {
    mWord = word;
    mOffset = offset;
  }
  return *this;
}

}  // namespace lwconfig::tool
