// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace Vantor {

struct CCSVParserDataPtr;

// Writes the collected lines to the stream, on the calling thread.
void WriteLines(CCSVParserDataPtr &data);

// Writes them on a pool thread and returns when that is done and the waiting dialog has closed.
// Holds the data, not the parser: the event loop runs, and the parser may be deleted meanwhile.
void WriteLinesBehindDialog(const std::shared_ptr<CCSVParserDataPtr> &data);

} // namespace Vantor
