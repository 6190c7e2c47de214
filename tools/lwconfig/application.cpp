#include <cstdlib>
#include <exception>
#include <filesystem>
#include <system_error>

#include <tools/lwconfig/application.h>
#include <tools/lwconfig/command_line.h>
#include <tools/lwconfig/command_source.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/reporter.h>

namespace lwconfig::tool {
namespace {

/// Whether the registry can be there where the environment names a folder for it: a file would be taken for
/// an empty registry.
bool HasRegistryFolder(Reporter& reporter) {
  const char* folder = std::getenv("LWCONFIG_REGISTRY");
  if (folder == nullptr || !std::filesystem::exists(folder) || std::filesystem::is_directory(folder))
    return true;
  reporter.Fail(ExitStatus::InputOutput,
                "LWCONFIG_REGISTRY names a file, not a folder: " + std::string(folder));
  return false;
}

}  // namespace

int RunApplication(int argc, const char* const* argv) {
  Reporter reporter;
  try {
    const auto request = ReadCommandLine(kProgram, argc, argv, reporter);
    if (request && (request->Asked->IsHidden || HasRegistryFolder(reporter)))
      RunReported(reporter, {}, [&] { request->Asked->Run(request->Given, reporter); });
  } catch (const std::filesystem::filesystem_error& failure) {
    // Only the current folder has no name.
    const std::string path = failure.path1().string();
    reporter.Fail(ExitStatus::InputOutput,
                  (path.empty() ? "the current folder" : path) + ": " + failure.code().message());
  } catch (const std::system_error& failure) {
    reporter.Fail(ExitStatus::InputOutput, failure.what());
  } catch (const std::exception& failure) {
    reporter.Fail(ExitStatus::Failure, failure.what());
  }
  return static_cast<int>(reporter.Status());
}

}  // namespace lwconfig::tool
