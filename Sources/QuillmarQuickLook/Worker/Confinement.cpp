#include "QuillmarQuickLook/Worker/Confinement.h"

#include "QuillmarQuickLook/Worker/Landlock.h"
#include "QuillmarQuickLook/Worker/SystemCallFilter.h"

#include <algorithm>
#include <sys/prctl.h>
#include <sys/resource.h>

namespace quillmar::Confinement {
namespace {

/// Bytes of address space, of which threads reserve far more than they use. The largest previews take a
/// quarter.
constexpr rlim_t maxAddressSpace = 2'147'483'648;

/// Seconds of processor time of all threads: what the budgets of the readers allow on eight processors,
/// doubled.
constexpr rlim_t maxProcessorTime = 30;
constexpr rlim_t processorGrace = 1; // the signal that says why comes before the one that ends it

/// A folder is open for every level of a tree that is measured.
constexpr rlim_t maxOpenFiles = 1'024;

/// \p grace is what is left between the warning and the end, for limits that warn.
bool limit(__rlimit_resource resource, rlim_t value, rlim_t grace = 0) {
    rlimit limits{};
    if (::getrlimit(resource, &limits) != 0) return false;
    limits.rlim_max = std::min(limits.rlim_max, value + grace);
    limits.rlim_cur = std::min(limits.rlim_cur, value);
    return ::setrlimit(resource, &limits) == 0;
}

bool limitResources() {
#if defined(QUILLMAR_SHADOW_MEMORY)
    constexpr bool hasShadowMemory = true; // the sanitizer reserves terabytes
#else
    constexpr bool hasShadowMemory = false;
#endif
    const bool isMemoryLimited = hasShadowMemory || limit(RLIMIT_AS, maxAddressSpace);
    return limit(RLIMIT_CPU, maxProcessorTime, processorGrace) && limit(RLIMIT_NOFILE, maxOpenFiles) &&
           limit(RLIMIT_FSIZE, 0) && limit(RLIMIT_CORE, 0) && isMemoryLimited;
}

} // namespace

InForce confineTo(const std::optional<FileURL>& item) {
    InForce inForce;
    inForce.resourceLimits = limitResources();
    const bool gainsNothing = ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0; // what the next two ask for
    inForce.landlock = gainsNothing && Landlock::restrictTo(item);
    inForce.seccomp = gainsNothing && SystemCallFilter::install();
    return inForce;
}

} // namespace quillmar::Confinement
