#include <exception>
#include <filesystem>
#include <system_error>

#include <tools/lwconfig/application.h>
#include <tools/lwconfig/command_line.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/members/report.h>
#include <tools/lwconfig/reporter.h>

namespace lwconfig::tool {

int RunApplication(int argc, const char* const* argv) {
  Reporter reporter;
  try {
    if (const auto request = ReadCommandLine(kProgram, argc, argv, reporter))
      WithFaults(reporter, {}, [&] { request->Asked->Run(request->Given, reporter); });
  } catch (const std::filesystem::filesystem_error& failure) {
    reporter.Fail(ExitStatus::InputOutput, failure.path1().string() + ": " + failure.code().message());
  } catch (const std::system_error& failure) {
    reporter.Fail(ExitStatus::InputOutput, failure.what());
  } catch (const std::exception& failure) {
    reporter.Fail(ExitStatus::Failure, failure.what());
  }
  return static_cast<int>(reporter.Status());
}

}  // namespace lwconfig::tool
