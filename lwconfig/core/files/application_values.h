#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lwconfig {

/// The product's key in the machine's hive and in the user's.
inline constexpr const char* kProductKey = "Software\\Corvantis\\Lexiwend4";
/// The value in the machine's key that names the configuration folder.
inline constexpr const char* kConfigPathValue = "ConfigPath";

/// The configuration folder, without trailing backslash; empty when the registry names none. Read anew
/// on every call.
std::string ConfigPath();
/// Error 76 where the registry names no configuration folder.
void RequireConfigPath();
/// The maker's common folder, with trailing backslash; "\" when the registry names none. Read anew
/// on every call.
std::string CommonPath();
/// The installation folder as registered; empty when the registry names none. Read anew on every call.
std::string AppPath();
/// The folder of the newest .NET Framework version, with trailing backslash; the framework folder and one
/// more backslash when there is none. Computed on the first call, then kept for the life of the process.
std::string DotNetPath();

/// A per-user value, or `DefaultValue` where it is absent or empty. `ExtraPath` names a sub-key of the
/// product's key; "" is the key itself.
std::string GetAppValue(std::string_view ValueName, std::string_view DefaultValue,
                        std::string_view ExtraPath);
/// Writes a per-user value as text; it is on disk when the call returns. A failing registry raises its error.
void SetAppValue(std::string_view ValueName, std::string_view value, std::string_view ExtraPath);
/// Deletes a per-user value, if there is one; the deletion is on disk when the call returns. A failing
/// registry raises its error.
void DeleteAppValue(std::string_view ValueName, std::string_view ExtraPath);

/// The user's shell folder with this identifier (5: documents), with trailing backslash; created when
/// missing. Empty when there is none.
std::string GetShellFolder(std::int32_t csidl);
/// The text before its first NUL character.
std::string TrimNull(std::string_view startstr);

}  // namespace lwconfig
