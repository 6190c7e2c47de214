#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/paths/object_model.h>

namespace lwconfig::tool {

/// A word that could stand in the place of the one being typed.
struct Candidate {
  std::string Text;
  std::string About{};
};

/// What a path is wanted for.
enum class PathUse { Read, Write, Add, Remove, Call };

/// The paths that begin as the text does and go one step further. One that ends in a bracket or a dot goes
/// on.
std::vector<Candidate> CompletePath(ObjectModel& model, std::string_view text, PathUse use);
/// The values of the property at the path, among them the names in the configuration that it can refer to. In
/// a list of names `text` is continued by one.
std::vector<Candidate> CompleteValue(ObjectModel& model, const std::string& path, std::string_view text);
/// `Member=`, and values after it, for a new item of the collection at the path.
std::vector<Candidate> CompleteMember(ObjectModel& model, const std::string& path, std::string_view text);

}  // namespace lwconfig::tool
