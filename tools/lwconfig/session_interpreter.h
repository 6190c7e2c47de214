#pragma once

#include <map>
#include <string>
#include <vector>

#include <lwconfig/core/base/event.h>
#include <lwconfig/editing/editor.h>

namespace lwconfig::tool {

/// Commands on objects of one's own, each reported with its result: what programs do with the object model,
/// written down.
///
///     NAME = new CLASS                       a new object; paths may begin with its name
///     NAME = get PATH                        an object, named likewise
///     NAME = call PATH ARG...                the object that a method gives, named likewise
///     get PATH                               as the command of this name
///     set PATH VALUE                         as the command of this name
///     call PATH ARG...                       as the command of this name
///     each PATH                              the items of a collection
///     same PATH PATH                         whether both are one object
///     NAME = connect PATH EVENT COMMAND...   runs the command whenever the event is raised
///     close NAME                             ends such a connection
class SessionInterpreter {
 public:
  explicit SessionInterpreter(ObjectModel& model) : mModel(model), mEditor(model) {}

  /// The command after "> ", then its values, or "error" and the number, one line for each. Nothing is saved.
  std::string Run(const std::vector<std::string>& words);

 private:
  using Words = std::vector<std::string>;

  void Tell(const Words& words);
  std::vector<CallResult> Do(const std::string& name, const Words& words);
  AnyObject ObjectAt(const std::string& path);
  std::vector<CallResult> Each(const std::string& path);
  void Connect(const std::string& name, const Words& words);

  ObjectModel& mModel;
  Editor mEditor;
  std::map<std::string, Connection> mConnections;
  std::string mTold;
};

}  // namespace lwconfig::tool
