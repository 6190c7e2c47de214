#pragma once

namespace lwconfig {

/// The placeholders that the generator fills by itself, besides the variables of a template. It may know
/// more: these are the ones in the templates that page layouts get by default and in those of the starter
/// configuration.
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
