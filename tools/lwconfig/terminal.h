#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include <tools/lwconfig/reporter.h>
#include <tools/lwconfig/view/tree_text.h>

namespace lwconfig::tool {

/// What standard output can show. Colours are for a terminal, unless `colour` is "always" or "never";
/// `columns`, where it is not 0, is taken instead of the width of the terminal.
TextStyle OutputStyle(std::string_view colour, std::size_t columns);

/// The progress line on standard error; null where that is no terminal that can rewrite a line.
std::unique_ptr<ProgressLine> ErrorTerminal();

/// Writes to standard output, in full. A failure is reported; that the reader has gone is none.
void WriteOutput(std::string_view text, Reporter& reporter);
/// Writes every part in this way until one fails.
Sink OutputSink(Reporter& reporter);

}  // namespace lwconfig::tool
