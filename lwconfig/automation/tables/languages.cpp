#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {

template <>
const ClassInfo& ClassOf<Language>() {
  using I = Interface<Language>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&Language::Name>("Name", {.IsKey = true}),
      I::Property<&Language::Caption>("Caption"),
      I::Property<&Language::IncludeFlag>("IncludeFlag"),
      I::Property<&Language::OverloadsWord>("OverloadsWord"),
      I::Property<&Language::OverridesWord>("OverridesWord"),
      I::Property<&Language::VirtualWord>("VirtualWord"),
      I::Property<&Language::NotVirtualWord>("NotVirtualWord"),
      I::Property<&Language::AbstractWord>("AbstractWord"),
      I::Property<&Language::ShadowsWord>("ShadowsWord"),
      I::Property<&Language::StaticWord>("StaticWord"),
      I::Property<&Language::OptionalWord>("OptionalWord"),
      I::Property<&Language::OutParamWord>("OutParamWord"),
      I::Property<&Language::ByRefWord>("ByRefWord"),
      I::Property<&Language::ByValWord>("ByValWord"),
      I::Property<&Language::ReturnTypePrefix>("ReturnTypePrefix"),
      I::Property<&Language::ArraySymbol>("ArraySymbol"),
      I::Property<&Language::VoidTypeName>("VoidTypeName"),
      I::Property<&Language::ParamArrayWord>("ParamArrayWord"),
      I::Property<&Language::FunctionWord>("FunctionWord"),
      I::Property<&Language::SubWord>("SubWord"),
      I::Property<&Language::ParameterDelimiter>("ParameterDelimiter"),
      I::Property<&Language::IncludeByDefault>("IncludeByDefault"),
      I::Property<&Language::MustInheritWord>("MustInheritWord"),
      I::Property<&Language::NotInheritableWord>("NotInheritableWord"),
      I::Property<&Language::ReadOnlyPropertyWord>("ReadOnlyPropertyWord"),
      I::Property<&Language::WriteOnlyPropertyWord>("WriteOnlyPropertyWord"),
      I::Property<&Language::ReadWritePropertyWord>("ReadWritePropertyWord"),
      I::Property<&Language::ReadOnlyFieldKeyword>("ReadOnlyFieldKeyword"),
      I::Property<&Language::DataTypes>("DataTypes"),
      I::Property<&Language::ReverseDataTypes>("ReverseDataTypes"),
      I::Property<&Language::AccessTypes>("AccessTypes"),
      I::Property<&Language::MultiDimensionalArraySymbol>("MultiDimensionalArraySymbol"),
      I::Method<&Language::Load>("Load", "e"));
  static const ClassInfo info = I::Class("Language", kSlots, {.Element = "Language"});
  return info;
}

template <>
const ClassInfo& ClassOf<Languages>() {
  using I = Interface<Languages>;
  static constexpr auto kSlots =
      I::Slots(I::CollectionMembers("Item"), I::Method<&Languages::Load>("Load", "e"));
  static const ClassInfo info = I::Class("Languages", kSlots, {.Saving = Saving::Never});
  return info;
}

}  // namespace lwconfig::automation
