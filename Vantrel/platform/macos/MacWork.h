// Wraps background work on macOS in an autorelease pool and an activity.
#pragma once

#include <functional>

namespace vantrel::MacWork {

// Runs background work with an autorelease pool and an activity. Threads other than the main one have no
// pool, and system functions autorelease objects even when plain C calls them: without a pool, these objects
// are kept until the thread ends.
void perform(const std::function<void()>& work);

} // namespace vantrel::MacWork
