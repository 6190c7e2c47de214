#pragma once

#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

class Object;

/// Events of an object reach sinks through one connection point. A connection lasts until the client closes
/// it or the library's object is destroyed, even while no client holds a reference to the source.

/// The connection point of an object whose class has events. The caller releases it.
IConnectionPoint* EventsOf(Object& source);
/// An enumeration of the one connection point.
HRESULT ListConnectionPoints(Object& source, IEnumConnectionPoints** result);

}  // namespace lwconfig::com
