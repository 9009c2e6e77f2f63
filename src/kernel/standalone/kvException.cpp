#include "kernel/kvException.h"

#include "kernel/kvKivo.h"
#include "kernel/standalone/kvSession.h"

#include <string>
#include <utility>

kvException::~kvException() = default;

char const* kvException::what() const noexcept { return "Kernel exception"; }

kvException::operator char const*() const { return what(); }

int kvException::get_kind() const { return -1; }

void kvException::reportErrors(char const* context) {
    if (!isEnabled(nullptr)) {
        return;
    }
    auto text = context && *context != '\0' ? std::string(context) + ": " : std::string();
    if (auto const* message = what()) {
        text += message;
    }
    kvKivo::addToMainLog("Kernel", text.c_str());
}

kvException* kvException::asKernelException() { return nullptr; }

bool kvException::setEnabled(kvSession* session, bool enabled) {
    return std::exchange(kvSession::of(session).mReportingEnabled, enabled);
}

bool kvException::isEnabled(kvSession* session) { return kvSession::of(session).mReportingEnabled; }
