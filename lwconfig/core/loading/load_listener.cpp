#include <utility>

#include <lwconfig/core/loading/load_listener.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {
namespace {

LoadListener* gCurrent = nullptr;

Problem ProblemOf(const Error& failure) {
  switch (failure.Number()) {
    case kDuplicateKey:
      return Problem::DuplicateKey;
    case kTypeMismatch:
    case kOverflow:
      return Problem::InvalidValue;
    case kBadFileName:
    case kFileNotFound:
    case kPermissionDenied:
    case kPathFileAccess:
    case kPathNotFound:
      return Problem::UnreadableFile;
    default:
      return Problem::NotLoaded;
  }
}

}  // namespace

LoadListener& LoadListener::Default() {
  static LoadListener listener(nullptr);
  return listener;
}

LoadListener& LoadListener::Current() {
  return gCurrent != nullptr ? *gCurrent : Default();
}

void LoadListener::SetCurrent(LoadListener* listener) {
  gCurrent = listener;
}

DiagnosticHandler LoadListener::SetHandler(DiagnosticHandler handler) {
  return std::exchange(mHandler, std::move(handler));
}

bool LoadListener::Wants(Problem problem) const {
  return mHandler && KindOf(problem).ConcernsLoaders;
}

bool LoadListener::Count(Problem problem, const std::string& file) {
  return Wants(problem) && ++mCounts[file][static_cast<std::size_t>(problem)] <= kMostReported;
}

void LoadListener::Report(Problem problem, const FilePosition& position, std::string_view message,
                          const Suggester& suggest) {
  Report({position, std::string(message), problem}, suggest);
}

void LoadListener::Report(Diagnostic diagnostic, const Suggester& suggest) {
  if (!Count(diagnostic.Problem, diagnostic.Position.File)) return;
  if (suggest) diagnostic.Suggestion = suggest();
  mHandler(diagnostic);
}

void LoadListener::Report(const Error& failure) {
  Report(ProblemOf(failure), failure.Position(), failure.Description());
}

void LoadListener::Report(Problem problem, const XMLElement& e, std::string_view attribute,
                          std::string_view message, const Suggester& suggest) {
  // Count first: the place of an attribute is expensive, since the file may be read again.
  if (!Count(problem, e.SourcePath())) return;
  mHandler({e.Position(attribute), std::string(message), problem, suggest ? suggest() : std::string(),
            ModelPathOf(e)});
}

}  // namespace lwconfig
