#pragma once

#include <cstddef>
#include <cstdint>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

class Object;

/// A machine word, in which the interface passes arguments.
using Word = std::uintptr_t;

/// How many words the arguments of a slot take, the one for the result included.
std::size_t WordCount(const automation::MemberInfo& slot);

/// A call through the interface: uses the slot of that number, from 0 on, with the arguments in `words`. What
/// the call returns is stored where they say.
HRESULT CallSlot(Object& object, std::size_t number, const Word* words) noexcept;

}  // namespace lwconfig::com
