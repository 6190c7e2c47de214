#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/namespaces/language.h>
#include <lwconfig/options/vsnet_options.h>

namespace lwconfig {

Conversion<std::string> StoredOrExcludedLanguages(std::string_view stored) {
  if (stored != "Empty") return {std::string(stored)};
  Collection names;
  const auto languages = Languages::Shared();
  for (const auto& language : *languages) {
    if (!language->IncludeByDefault) names.Add(language->Name);
  }
  return {StringTools::JoinCollection(names, ",")};
}

}  // namespace lwconfig
