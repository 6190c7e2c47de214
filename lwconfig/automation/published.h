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

/// Every published class and enumeration. Their tables are in `tables/`, by subject.

template <>
const ClassInfo& ClassOf<Root>();
template <>
const ClassInfo& ClassOf<PageTemplates>();
template <>
const ClassInfo& ClassOf<PageTemplate>();
template <>
const ClassInfo& ClassOf<PageLayouts>();
template <>
const ClassInfo& ClassOf<PageLayout>();
template <>
const ClassInfo& ClassOf<TOCDefinitions>();
template <>
const ClassInfo& ClassOf<TOCDefinition>();
template <>
const ClassInfo& ClassOf<NodeDefs>();
template <>
const ClassInfo& ClassOf<NodeDef>();
template <>
const ClassInfo& ClassOf<VariableDefs>();
template <>
const ClassInfo& ClassOf<VariableDef>();
template <>
const ClassInfo& ClassOf<TaggedCommentDefs>();
template <>
const ClassInfo& ClassOf<TaggedCommentDef>();
template <>
const ClassInfo& ClassOf<ModelCommentProfiles>();
template <>
const ClassInfo& ClassOf<ModelComments>();
template <>
const ClassInfo& ClassOf<ModelComment>();
template <>
const ClassInfo& ClassOf<CommentFileLocations>();
template <>
const ClassInfo& ClassOf<CommentFileLocation>();
template <>
const ClassInfo& ClassOf<Languages>();
template <>
const ClassInfo& ClassOf<Language>();
template <>
const ClassInfo& ClassOf<NamespaceProfiles>();
template <>
const ClassInfo& ClassOf<NamespaceDefs>();
template <>
const ClassInfo& ClassOf<NamespaceDef>();
template <>
const ClassInfo& ClassOf<ElementDefs>();
template <>
const ClassInfo& ClassOf<ElementDef>();
template <>
const ClassInfo& ClassOf<ElementAttributeDefs>();
template <>
const ClassInfo& ClassOf<ElementAttributeDef>();
template <>
const ClassInfo& ClassOf<ElementAttributes>();
template <>
const ClassInfo& ClassOf<INamespaceProvider>();
template <>
const ClassInfo& ClassOf<PlugIns>();
template <>
const ClassInfo& ClassOf<PlugIn>();
template <>
const ClassInfo& ClassOf<ExternalDocs>();
template <>
const ClassInfo& ClassOf<ExternalDoc>();
template <>
const ClassInfo& ClassOf<ExternalLink>();
template <>
const ClassInfo& ClassOf<VSNETOptions>();
template <>
const ClassInfo& ClassOf<VBOptions>();
template <>
const ClassInfo& ClassOf<LWCommenterOptions>();
template <>
const ClassInfo& ClassOf<IDEOptions>();
template <>
const ClassInfo& ClassOf<SpellingOptions>();
template <>
const ClassInfo& ClassOf<CommonEnums>();
template <>
const ClassInfo& ClassOf<Collection>();
template <>
const ClassInfo& ClassOf<XMLDocument>();
template <>
const ClassInfo& ClassOf<XMLElement>();
template <>
const ClassInfo& ClassOf<XMLElements>();
template <>
const ClassInfo& ClassOf<XMLAttributes>();
template <>
const ClassInfo& ClassOf<XMLAttribute>();
template <>
const ClassInfo& ClassOf<DiskFile>();
template <>
const ClassInfo& ClassOf<DiskFiles>();
template <>
const ClassInfo& ClassOf<RegistryAccess>();
template <>
const ClassInfo& ClassOf<StringTools>();
template <>
const ClassInfo& ClassOf<ObjectReference<AnyObject>>();

template <>
const EnumInfo& EnumOf<PageTypeEnum>();
template <>
const EnumInfo& EnumOf<NodeTypeEnum>();
template <>
const EnumInfo& EnumOf<DependantOnEnum>();
template <>
const EnumInfo& EnumOf<VariableDefTypeEnum>();
template <>
const EnumInfo& EnumOf<ElementTypeEnum>();
template <>
const EnumInfo& EnumOf<WrapTypeEnum>();
template <>
const EnumInfo& EnumOf<mcInsertionPointEnum>();
template <>
const EnumInfo& EnumOf<mcMemberTypeEnum>();
template <>
const EnumInfo& EnumOf<LWToolBarStyleEnum>();
template <>
const EnumInfo& EnumOf<CommentEditorViewEnum>();
template <>
const EnumInfo& EnumOf<LWVSWindowStyleEnum>();
template <>
const EnumInfo& EnumOf<BlockPositionEnum>();
template <>
const EnumInfo& EnumOf<CommentModeEnum>();
template <>
const EnumInfo& EnumOf<LWIPCCommandEnum>();

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
