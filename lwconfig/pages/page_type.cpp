#include <lwconfig/pages/page_type.h>

namespace lwconfig {

std::string_view CodeElementOf(PageTypeEnum pageType) {
  switch (pageType) {
    case pgobject:
    case pgcollection:
    case pgModule:
      return "LW:Module";
    case pgMethod:
      return "LW:Method";
    case pgProperty:
      return "LW:Property";
    case pgEvent:
      return "LW:Event";
    case pgEnumeration:
      return "LW:Enumeration";
    case pgUDT:
      return "LW:Structure";
    case pgLibrary:
      return "LW:Library";
    case pgDeclaration:
      return "LW:DeclareStatement";
    case pgProject:
      return "LW:Project";
    case pgInterface:
      return "LW:ImplementedInterface";
    case pgExample:
      return "LW:Example";
    default:
      return {};
  }
}

}  // namespace lwconfig
