#pragma once

#include <functional>
#include <string>
#include <vector>

#include <tools/lwconfig/view/json_value.h>
#include <tools/lwconfig/view/tree_path.h>

namespace lwconfig::tool {

/// The JSON of a value of the object model.
using ValueToJson = std::function<Json(const Variant&)>;

/// Writes the target, or a list of several, as JSON text. Nodes with a value are that value; of others what
/// is below them counts. A group is a list, an object where its nodes are no objects.
void WriteJson(const std::vector<Target>& targets, const ValueToJson& toJson, const Sink& sink);

/// The JSON text, indented, as UTF-8; bytes that are not UTF-8 become replacement characters.
std::string JsonText(const Json& json);

}  // namespace lwconfig::tool
