#include "kernel/standalone/kvTrace.h"

#include <algorithm>
#include <utility>

namespace {

struct Recording {
    std::vector<std::string> mEvents;
    std::vector<kvContext const*> mContexts; // in the order of construction; only their addresses are used

    std::string nameOf(kvContext const* context) const {
        if (!context) {
            return "null";
        }
        // From the newest on: the address of a context that is gone may have been given to a later one.
        auto const found = std::find(mContexts.rbegin(), mContexts.rend(), context);
        return found == mContexts.rend() ? "other" : std::string("#") + std::to_string(mContexts.rend() - found);
    }
};

// The calling thread's recording while it is under way.
constinit thread_local Recording* tActive = nullptr;

// Keeps the calling thread's recording; touched by start() and stop() alone, so that other threads never construct it.
struct Recorder {
    Recording mRecording;
    ~Recorder() { tActive = nullptr; }
};

Recording& ownRecording() {
    thread_local Recorder recorder;
    return recorder.mRecording;
}

} // namespace

void kvTrace::start() {
    ownRecording() = {};
    tActive = &ownRecording();
}

std::vector<std::string> kvTrace::stop() {
    tActive = nullptr;
    return std::exchange(ownRecording(), {}).mEvents;
}

void kvTrace::contextMade(kvContext const& context) {
    if (tActive) {
        tActive->mContexts.push_back(&context);
        tActive->mEvents.push_back("new kvContext(" + std::to_string(context.getFirstNumber()) + ", " +
                                   std::to_string(context.getSecondNumber()) + ")");
    }
}

void kvTrace::contextDeleted() {
    if (tActive) {
        tActive->mEvents.emplace_back("delete kvContext");
    }
}

void kvTrace::contextSwitched(kvContext const* context) {
    if (tActive) {
        tActive->mEvents.push_back("setCurrentShared(" + tActive->nameOf(context) + ")");
    }
}

void kvTrace::reportingSwitched(bool enabled) {
    if (tActive) {
        tActive->mEvents.emplace_back(enabled ? "setEnabled(true)" : "setEnabled(false)");
    }
}
