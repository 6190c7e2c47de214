#pragma once

#include <memory>
#include <string_view>

#include <tools/lwconfig/reporter.h>

#include <lwconfig/root.h>

namespace lwconfig::tool {

/// The shared object that `obtain` hands out. Where loading it fails it is asked for again, because a second
/// request gives what could be loaded.
template <class Obtain>
auto Loaded(Reporter& reporter, Obtain obtain) {
  try {
    return obtain();
  } catch (const Error& failure) {
    reporter.Fail(failure);
  }
  return obtain();
}

/// The templates. Failures are reported, those of the namespace profiles as well.
std::shared_ptr<PageTemplates> LoadedTemplates(Root& root, Reporter& reporter);

/// The template of that name, else the one in the folder of that name, letter case ignored. Null where there
/// is none, which is reported.
std::shared_ptr<PageTemplate> FindTemplate(const PageTemplates& templates, std::string_view name,
                                           Reporter& reporter);

}  // namespace lwconfig::tool
