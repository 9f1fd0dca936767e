#pragma once

namespace quillmar {

/// Lets the C library's `localtime_r` know the zone that TZ names now. Returns a number that is another one
/// whenever the zone may be, for those who remember what it told them. Costs a look at the environment.
unsigned updateLocalZone();

} // namespace quillmar
