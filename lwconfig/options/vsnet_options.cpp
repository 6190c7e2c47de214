#include <lwconfig/namespaces/language.h>
#include <lwconfig/options/vsnet_options.h>

namespace lwconfig {

Conversion<std::string> StoredOrExcludedLanguages(std::string_view stored) {
  if (stored != "Empty") return {std::string(stored)};
  std::string names;
  bool isFirst = true;
  const auto languages = Languages::Shared();
  for (const auto& language : *languages) {
    if (language->IncludeByDefault) continue;
    if (!isFirst) names += ',';
    names += language->Name;
    isFirst = false;
  }
  return {names};
}

}  // namespace lwconfig
