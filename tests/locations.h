#pragma once

namespace lwconfig::testing {

/// The command as it is built. Null where it is not.
extern const char* const kCommandPath;
/// What objects save of the attributes that they read.
extern const char* const kSavedAttributes;
/// The folder of the sessions with the command.
extern const char* const kSessionsFolder;
/// The record of the published interface.
extern const char* const kPublishedInterface;
/// The folder of the guides.
extern const char* const kGuidesFolder;

}  // namespace lwconfig::testing
