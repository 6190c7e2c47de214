#pragma once

#include <string>
#include <vector>

#include <tools/lwconfig/view/json_value.h>
#include <tools/lwconfig/view/node.h>
#include <tools/lwconfig/view/tree_text.h>

#include <lwconfig/automation/published.h>

namespace lwconfig::tool {

/// A member of a class or enumeration, or an event, as it is told.
struct MemberDescription {
  std::string Name;
  std::string Owner;
  std::string Signature;  // "Add(obj As PageLayout)", "pgMethod = 3"
  std::string Kind;       // "method", "get, let", "event"; empty of an enumeration
  std::string Contract{};
  Json Details = Json::object();  // what only JSON has
};

/// A class or enumeration.
struct Description {
  std::string Name;
  std::string Kind;  // "class", "enumeration"
  std::string Note;  // "objects come from other objects only"
  std::string Contract;
  std::vector<MemberDescription> Members{};
};

Description Describe(const automation::ClassInfo& info);
Description Describe(const automation::EnumInfo& info);

/// The list of all, one line each; a class with its members, each with the first sentence of its contract; a
/// member with all of it.
std::string DescriptionText(const std::vector<Description>& all, const TextStyle& style);
std::string DescriptionText(const Description& described, const TextStyle& style);
std::string DescriptionText(const MemberDescription& member, const TextStyle& style);
Json ToJson(const std::vector<Description>& all);
Json ToJson(const Description& described);
Json ToJson(const MemberDescription& member);

}  // namespace lwconfig::tool
