#pragma once

#include <string>

#include <lwconfig/automation/class_info.h>

namespace lwconfig::python {

/// The text of `help()` for a member: its signature and its contract.
std::string MemberDocumentation(const automation::ClassInfo& info,
                                const automation::ClassInfo::Member& member);
/// "($self, obj, Key=None)", the form of Python's own functions.
std::string TextSignature(const automation::MemberInfo& slot);

}  // namespace lwconfig::python
