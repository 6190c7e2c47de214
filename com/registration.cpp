#include "registration.h"
namespace lwconfig::com {
void Register(RegistrationScope, const std::wstring&) {}
void Unregister(RegistrationScope) {}
}  // namespace lwconfig::com
