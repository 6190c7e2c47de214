#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

/// A word as it stands in a declaration: quoted, because the blanks around it count.
Property Word(const char* label, const std::string& word) {
  return {label, {word.empty() ? "" : "\"" + word + "\""}};
}

/// The entries of a table of translations side by side.
void AddTable(Node& node, const char* label, const Collection& table) {
  std::int32_t position = 0;
  for (const std::string& text : table)
    node.Properties.push_back({label, {table.KeyAt(++position) + " = " + text}});
}

Node Describe(const Language& language) {
  Node node{"language", language.Name};
  node.Summary = {{language.Caption == language.Name ? "" : language.Caption},
                  {language.IncludeByDefault ? "included by default" : "", Tone::Condition}};
  node.Properties = {
      Labelled("caption", language.Caption),
      Labelled("included by default", language.IncludeByDefault),
      Word("overloads", language.OverloadsWord),
      Word("overrides", language.OverridesWord),
      Word("virtual", language.VirtualWord),
      Word("not virtual", language.NotVirtualWord),
      Word("abstract", language.AbstractWord),
      Word("shadows", language.ShadowsWord),
      Word("static", language.StaticWord),
      Word("optional", language.OptionalWord),
      Word("output parameter", language.OutParamWord),
      Word("by reference", language.ByRefWord),
      Word("by value", language.ByValWord),
      Word("parameter array", language.ParamArrayWord),
      Word("between parameters", language.ParameterDelimiter),
      Word("before the return type", language.ReturnTypePrefix),
      Word("no return type", language.VoidTypeName),
      Word("array", language.ArraySymbol),
      Word("array of more dimensions", language.MultiDimensionalArraySymbol),
      Word("function", language.FunctionWord),
      Word("procedure", language.SubWord),
      Word("must be inherited", language.MustInheritWord),
      Word("cannot be inherited", language.NotInheritableWord),
      Word("read-only property", language.ReadOnlyPropertyWord),
      Word("write-only property", language.WriteOnlyPropertyWord),
      Word("read/write property", language.ReadWritePropertyWord),
      Word("read-only field", language.ReadOnlyFieldKeyword),
  };
  AddTable(node, "access", *language.AccessTypes);
  AddTable(node, "data types", *language.DataTypes);
  AddTable(node, "and back", *language.ReverseDataTypes);
  return node;
}

}  // namespace

Group Describe(const Languages& languages) {
  return {"languages", "Languages",
          EachOf(languages, [](const Language& language) { return Describe(language); })};
}

}  // namespace lwconfig::tool
