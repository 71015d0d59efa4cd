#pragma once

#include <cstddef>

namespace mirvane {

// Maps `bytes` of heap in one request, before a short run needs them.
//
// On some virtual machines (the kind CI runners and cloud build hosts use)
// each first touch of a page costs tens of microseconds, ten times what the
// same page costs when the kernel maps a whole range at once; a command-line
// run over a large TYP touches a few hundred pages. Memory freed later stays
// with the process for reuse, which suits a run that ends soon. Does nothing
// where the system offers no such request.
void PrepareWorkingMemory(std::size_t bytes);

}  // namespace mirvane
