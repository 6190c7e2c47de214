#include <iostream>

#include <lwconfig/root.h>

int main() {
  lwconfig::Root root;
  for (const auto& pageTemplate : *root.PageTemplates()) {
    std::cout << pageTemplate->Name << ": " << pageTemplate->PageLayouts()->Count() << " pages\n";
    for (const auto& toc : *pageTemplate->TOCDefinitions)
      std::cout << "  contents \"" << toc->Name << "\": " << toc->NodeDefs->Count() << " nodes\n";
  }
}
