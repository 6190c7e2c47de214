#include <string>

#include <lwconfig/checking/rules.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig {
namespace {

/// The formats with a fixed name of their root element; the others take any.
struct RootElement {
  lwconfig::Part Part;
  const char* Name;
};

constexpr RootElement kRootElements[] = {
    {Part::Comments, "TaggedCommentDefs"},
    {Part::ModelComments, "ModelCommentProfile"},
    {Part::CommentFiles, "CommentFileLocations"},
    {Part::ExternalDocs, "ExternalDocuments"},
    {Part::Templates, "PageTemplate"},
};

}  // namespace

void CheckRootElement(const RuleInput& input) {
  const std::string name = input.Root.Name();
  for (const auto& [part, expected] : kRootElements) {
    if (part != input.Part || name.empty() || EqualIgnoringCase(name, expected)) continue;
    input.Inspection.Report(Problem::UnexpectedRoot, input.Root, {},
                            "the root element is <" + name + ">, not <" + expected + ">");
  }
}

}  // namespace lwconfig
