#pragma once

#include <string>

#include <lwconfig/automation/class_info.h>

namespace lwconfig::python {

/// What `help()` tells of a member: its signature and what it promises.
std::string MemberDocumentation(const automation::ClassInfo& info,
                                const automation::ClassInfo::Member& member);
/// "($self, obj, Key=None)", as Python's own functions have it.
std::string TextSignature(const automation::MemberInfo& slot);

}  // namespace lwconfig::python
