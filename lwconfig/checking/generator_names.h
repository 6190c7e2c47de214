#pragma once

namespace lwconfig {

/// The placeholders that the generator fills itself, besides the variables of a template. The list may be
/// incomplete: it has those in the default templates of page layouts and in the starter configuration.
inline constexpr const char* kGeneratorNames[] = {
    "assemblyname",   "contentsfile",      "defaulttopic",
    "fileentry",      "filename",          "helpid",
    "helplanguage",   "itemaccess",        "itemcaption",
    "itemname",       "itemqualifiedname", "languageid",
    "languagenumber", "modulename",        "namespacename",
    "overloadindex",  "parentname",        "parentqualifiedname",
    "productname",    "projectgroupname",  "projectname",
};

}  // namespace lwconfig
