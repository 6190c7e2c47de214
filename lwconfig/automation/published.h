#pragma once

#include <span>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/automation/disk_files.h>
#include <lwconfig/comments/comment_file_locations.h>
#include <lwconfig/comments/model_comment.h>
#include <lwconfig/comments/model_comment_profiles.h>
#include <lwconfig/comments/model_comments.h>
#include <lwconfig/comments/tagged_comment_def.h>
#include <lwconfig/comments/tagged_comment_defs.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/base/object_reference.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/registry_access.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/core/xml/xml_document.h>
#include <lwconfig/core/xml/xml_element.h>
#include <lwconfig/externaldocs/external_doc.h>
#include <lwconfig/externaldocs/external_docs.h>
#include <lwconfig/externaldocs/external_link.h>
#include <lwconfig/namespaces/element_attributes.h>
#include <lwconfig/namespaces/element_def.h>
#include <lwconfig/namespaces/language.h>
#include <lwconfig/namespaces/namespace_def.h>
#include <lwconfig/namespaces/namespace_profiles.h>
#include <lwconfig/namespaces/namespace_provider.h>
#include <lwconfig/namespaces/plug_in.h>
#include <lwconfig/options/common_enums.h>
#include <lwconfig/options/ide_options.h>
#include <lwconfig/options/lw_commenter_options.h>
#include <lwconfig/options/spelling_options.h>
#include <lwconfig/options/toolbar_style.h>
#include <lwconfig/options/vb_options.h>
#include <lwconfig/options/vsnet_options.h>
#include <lwconfig/pages/node_def.h>
#include <lwconfig/pages/page_layout.h>
#include <lwconfig/pages/page_type.h>
#include <lwconfig/pages/toc_definition.h>
#include <lwconfig/pages/variable_def.h>
#include <lwconfig/root.h>
#include <lwconfig/templates/page_template.h>
#include <lwconfig/templates/page_templates.h>

namespace lwconfig::automation {

/// Every published class, in the order of the interface description. Its table is in `tables/`, by subject.
// clang-format off
#define LWCONFIG_PUBLISHED_CLASSES(USE) \
  USE(Root) \
  USE(PageTemplates) USE(PageTemplate) \
  USE(PageLayouts) USE(PageLayout) USE(TOCDefinitions) USE(TOCDefinition) \
  USE(NodeDefs) USE(NodeDef) USE(VariableDefs) USE(VariableDef) \
  USE(TaggedCommentDefs) USE(TaggedCommentDef) \
  USE(ModelCommentProfiles) USE(ModelComments) USE(ModelComment) \
  USE(CommentFileLocations) USE(CommentFileLocation) USE(Languages) USE(Language) \
  USE(NamespaceProfiles) USE(NamespaceDefs) USE(NamespaceDef) \
  USE(ElementDefs) USE(ElementDef) USE(ElementAttributeDefs) USE(ElementAttributeDef) USE(ElementAttributes) \
  USE(INamespaceProvider) USE(PlugIns) USE(PlugIn) \
  USE(ExternalDocs) USE(ExternalDoc) USE(ExternalLink) \
  USE(VSNETOptions) USE(VBOptions) USE(LWCommenterOptions) USE(IDEOptions) USE(SpellingOptions) USE(CommonEnums) \
  USE(Collection) USE(XMLDocument) USE(XMLElement) USE(XMLElements) USE(XMLAttributes) USE(XMLAttribute) \
  USE(DiskFile) USE(DiskFiles) USE(RegistryAccess) USE(StringTools) USE(ObjectReference<AnyObject>)

#define LWCONFIG_PUBLISHED_ENUMERATIONS(USE) \
  USE(PageTypeEnum) USE(NodeTypeEnum) USE(DependantOnEnum) USE(VariableDefTypeEnum) USE(ElementTypeEnum) USE(WrapTypeEnum) \
  USE(mcInsertionPointEnum) USE(mcMemberTypeEnum) \
  USE(LWToolBarStyleEnum) USE(CommentEditorViewEnum) USE(LWVSWindowStyleEnum) \
  USE(BlockPositionEnum) USE(CommentModeEnum) USE(LWIPCCommandEnum)
// clang-format on

#define LWCONFIG_DECLARE_CLASS(T) \
  template <>                     \
  const ClassInfo& ClassOf<T>();
LWCONFIG_PUBLISHED_CLASSES(LWCONFIG_DECLARE_CLASS)
#undef LWCONFIG_DECLARE_CLASS

#define LWCONFIG_DECLARE_ENUMERATION(E) \
  template <>                           \
  const EnumInfo& EnumOf<E>();
LWCONFIG_PUBLISHED_ENUMERATIONS(LWCONFIG_DECLARE_ENUMERATION)
#undef LWCONFIG_DECLARE_ENUMERATION

/// In the order of the interface description.
std::span<const ClassInfo* const> PublishedClasses();
std::span<const EnumInfo* const> PublishedEnumerations();

/// The class, or enumeration, of that name, letter case ignored; null where there is none.
const ClassInfo* FindClass(std::string_view name);
const EnumInfo* FindEnumeration(std::string_view name);

/// The object as automation callers hold it.
template <class T>
AnyObject ToAnyObject(std::shared_ptr<T> object) {
  return {std::move(object), &ClassOf<T>()};
}

}  // namespace lwconfig::automation
