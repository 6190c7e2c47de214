#include <tools/lwconfig/members/fault.h>

namespace lwconfig::tool {

Fault Fault::Unknown(ExitStatus status, const std::string& what, std::string_view wanted,
                     const std::string& where, std::vector<std::string> existing) {
  const std::string suggestion = Suggestion(wanted, existing);
  Fault fault(status, "there is no " + what + " '" + std::string(wanted) + "'" + where + suggestion);
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
