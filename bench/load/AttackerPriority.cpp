#include "load/AttackerPriority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace orbelan::load {

void runAsBackground()
{
    constexpr int kLeastPriority = 19;
    ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), kLeastPriority);
}

} // namespace orbelan::load
