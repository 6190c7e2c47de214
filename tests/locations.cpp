#include <tests/locations.h>

namespace lwconfig::testing {

#ifdef LWCONFIG_COMMAND
const char* const kCommandPath = LWCONFIG_COMMAND;
#else
const char* const kCommandPath = nullptr;
#endif
const char* const kSavedAttributes = LWCONFIG_SOURCES "/tests/saved_attributes.txt";
const char* const kSessionsFolder = LWCONFIG_SOURCES "/tests/tools/sessions";
const char* const kPublishedInterface = LWCONFIG_SOURCES "/tests/automation/published_interface.txt";
const char* const kGuidesFolder = LWCONFIG_SOURCES "/docs";

}  // namespace lwconfig::testing
