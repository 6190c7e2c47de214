#pragma once
#include <string>
namespace lwconfig::com {
enum class RegistrationScope { Machine, User };
void Register(RegistrationScope scope, const std::wstring& modulePath);
void Unregister(RegistrationScope scope);
}  // namespace lwconfig::com
