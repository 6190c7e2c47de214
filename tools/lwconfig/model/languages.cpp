#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

/// A word as it stands in a declaration: quoted, because the blanks around it count.
Property Word(const char* name, const std::string& word, const char* label) {
  return {name, word, label, {word.empty() ? "" : "\"" + word + "\""}};
}

/// A table of translations: an object for JSON, and its entries side by side for people.
void AddTable(Node& node, const char* name, const Collection& table, const char* label) {
  Json entries = Json::object();
  std::vector<Property> shown;
  std::int32_t position = 0;
  for (const std::string& text : table) {
    const std::string& key = table.KeyAt(++position);
    entries[key] = text;
    shown.push_back({{}, {}, label, {key + " = " + text}});
  }
  node.Properties.push_back(Unlabelled(name, std::move(entries)));
  node.Properties.insert(node.Properties.end(), shown.begin(), shown.end());
}

Node Describe(const Language& language) {
  Node node{"language", language.Name};
  node.Summary = {{language.Caption == language.Name ? "" : language.Caption},
                  {language.IncludeByDefault ? "included by default" : "", Tone::Condition}};
  node.Properties = {
      Unlabelled("Name", language.Name),
      Valued("Caption", language.Caption, "caption"),
      Valued("IncludeByDefault", language.IncludeByDefault, "included by default"),
      Word("OverloadsWord", language.OverloadsWord, "overloads"),
      Word("OverridesWord", language.OverridesWord, "overrides"),
      Word("VirtualWord", language.VirtualWord, "virtual"),
      Word("NotVirtualWord", language.NotVirtualWord, "not virtual"),
      Word("AbstractWord", language.AbstractWord, "abstract"),
      Word("ShadowsWord", language.ShadowsWord, "shadows"),
      Word("StaticWord", language.StaticWord, "static"),
      Word("OptionalWord", language.OptionalWord, "optional"),
      Word("OutParamWord", language.OutParamWord, "output parameter"),
      Word("ByRefWord", language.ByRefWord, "by reference"),
      Word("ByValWord", language.ByValWord, "by value"),
      Word("ParamArrayWord", language.ParamArrayWord, "parameter array"),
      Word("ParameterDelimiter", language.ParameterDelimiter, "between parameters"),
      Word("ReturnTypePrefix", language.ReturnTypePrefix, "before the return type"),
      Word("VoidTypeName", language.VoidTypeName, "no return type"),
      Word("ArraySymbol", language.ArraySymbol, "array"),
      Word("MultiDimensionalArraySymbol", language.MultiDimensionalArraySymbol, "array of more dimensions"),
      Word("FunctionWord", language.FunctionWord, "function"),
      Word("SubWord", language.SubWord, "procedure"),
      Word("MustInheritWord", language.MustInheritWord, "must be inherited"),
      Word("NotInheritableWord", language.NotInheritableWord, "cannot be inherited"),
      Word("ReadOnlyPropertyWord", language.ReadOnlyPropertyWord, "read-only property"),
      Word("WriteOnlyPropertyWord", language.WriteOnlyPropertyWord, "write-only property"),
      Word("ReadWritePropertyWord", language.ReadWritePropertyWord, "read/write property"),
      Word("ReadOnlyFieldKeyword", language.ReadOnlyFieldKeyword, "read-only field"),
  };
  AddTable(node, "AccessTypes", *language.AccessTypes, "access");
  AddTable(node, "DataTypes", *language.DataTypes, "data types");
  AddTable(node, "ReverseDataTypes", *language.ReverseDataTypes, "and back");
  return node;
}

}  // namespace

Group Describe(const Languages& languages) {
  return {"languages", "Languages",
          EachOf(languages, [](const Language& language) { return Describe(language); })};
}

}  // namespace lwconfig::tool
