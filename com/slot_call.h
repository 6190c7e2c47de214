#pragma once

#include <cstddef>
#include <cstdint>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

class Object;

/// A machine word, in which the interface passes arguments.
using Word = std::uintptr_t;

/// The number of words that the arguments of a slot take, including the result's.
std::size_t WordCount(const automation::MemberInfo& slot);

/// A call through the interface: uses the slot of that number, from 0, with the arguments in `words`. The
/// words also point to the places for the results.
HRESULT CallSlot(Object& object, std::size_t number, const Word* words) noexcept;

}  // namespace lwconfig::com
