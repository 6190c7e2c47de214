#include <lwconfig/core/files/application_values.h>
#include <lwconfig/options/option.h>

namespace lwconfig {

AnyOption::AnyOption(OptionSet& set, const char* section, const char* valueName, const char* name)
    : mName(name != nullptr ? name : valueName), mSection(section), mValueName(valueName) {
  set.mOptions.push_back(this);
}

std::string AnyOption::Read(std::string_view defaultText) const {
  return GetAppValue(mValueName, defaultText, mSection);
}

void AnyOption::Write(std::string_view text) {
  SetAppValue(mValueName, text, mSection);
}

void AnyOption::Reset() {
  DeleteAppValue(mValueName, mSection);
}

void AnyOption::Fail(std::int32_t number, std::string_view text, const char* problem) const {
  const std::string section = *mSection != '\0' ? std::string(mSection) + "\\" : std::string();
  throw Error(number, "The option " + section + mValueName + " is stored as \"" + std::string(text) +
                          "\", which " + problem);
}

}  // namespace lwconfig
