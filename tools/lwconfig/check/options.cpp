#include <string>

#include <tools/lwconfig/check/known_names.h>
#include <tools/lwconfig/check/options.h>

#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/files/application_values.h>

namespace lwconfig::tool {

void CheckOptions(Inspection& inspection, Root& root) {
  NameSet templates;
  for (const auto& pageTemplate : *root.PageTemplates()) templates.Add(pageTemplate->Name);
  const auto vb = root.VBOptions();
  const auto vsnet = root.VSNETOptions();
  const auto commenter = root.LWCommenterOptions();
  struct {
    const char* Set;
    const AnyOption& Option;
  } const options[] = {{vsnet->kClassName, vsnet->PreviewTemplate},
                       {vb->kClassName, vb->PreviewTemplate},
                       {vb->kClassName, vb->VBAPreviewTemplate},
                       {commenter->kClassName, commenter->PreviewTemplate}};
  for (const auto& [set, option] : options) {
    const std::string stored = GetAppValue(option.ValueName(), "", option.Section());
    if (stored.empty() || templates.Has(stored)) continue;
    inspection.Report(Problem::UnknownTemplate, {},
                      std::string("the option ") + set + "." + option.Name() + " names the template \"" +
                          stored + "\"; there is none",
                      [&] { return Nearest(stored, templates.Names()); });
  }
}

}  // namespace lwconfig::tool
