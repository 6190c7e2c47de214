#pragma once

#include <tools/lwconfig/command.h>
#include <tools/lwconfig/view/tree_text.h>

namespace lwconfig::tool {

/// The program itself: its actions are all commands, its options those that may come before one.
extern const Command kProgram;

extern const Command kShowCommand;
extern const Command kCheckCommand;
extern const Command kGetCommand;
extern const Command kListCommand;
extern const Command kSetCommand;
extern const Command kAddCommand;
extern const Command kRemoveCommand;
extern const Command kCallCommand;
extern const Command kApplyCommand;
extern const Command kOptionsCommand;
extern const Command kPhraseCommand;
extern const Command kScrapCommand;
extern const Command kLinkCommand;
extern const Command kTemplateCommand;
extern const Command kInitCommand;
extern const Command kRegistryCommand;
extern const Command kDescribeCommand;
extern const Command kCompletionCommand;
extern const Command kHelpCommand;
extern const Command kCompleteCommand;  // called by the completion scripts
extern const Command kSessionCommand;

}  // namespace lwconfig::tool
