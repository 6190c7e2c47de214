#pragma once

#include <string>

namespace lwconfig::com {

enum class RegistrationScope { Machine, User };

/// Writes the keys that clients look up before they create an object: the creatable classes and their
/// names, the type library, and the marshalling of the interfaces between apartments; `modulePath` is the
/// server's file. An older registration is replaced. On a failure, an `Error` that names the key,
/// everything is restored.
void Register(RegistrationScope scope, const std::wstring& modulePath);

/// Removes the registration, whatever file it names. Class names and type library are shared with the server
/// of the other word size and are kept while that one is registered. Absent keys are skipped. A key that
/// cannot be removed is an `Error` that names it, after everything else is removed.
void Unregister(RegistrationScope scope);

}  // namespace lwconfig::com
