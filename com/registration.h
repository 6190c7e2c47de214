#pragma once

#include <string>

namespace lwconfig::com {

enum class RegistrationScope { Machine, User };

/// Writes what clients look up before they create an object: the creatable classes and their names, the type
/// library, and how the interfaces travel between apartments; `modulePath` is the server's file. An older
/// registration is replaced. On a failure, an `Error` that names the key, all is as it was before.
void Register(RegistrationScope scope, const std::wstring& modulePath);

/// Removes the registration, whatever file it names. The server of the other word size shares class names and
/// type library with this one: they stay while it is registered. What is not there need not be removed; what
/// cannot be removed is an `Error` that names the key, once all the rest is gone.
void Unregister(RegistrationScope scope);

}  // namespace lwconfig::com
