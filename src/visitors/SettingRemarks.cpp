#include "kernel/kvProcessInit.h"

#include "visitors/SettingRemarks.h"

#include <configuration/Parameter.h>

#include "kernel/kvKivo.h"

namespace kivo::configuration {

namespace {

thread_local RemarkListener* currentListener = nullptr;

void log(SettingRemark const& remark) {
    auto text = remark.message;
    if (remark.origin.isKnown()) {
        text.append("\n [given = ").append(remark.origin.toOrigin().toString()).append("]");
    }
    kvKivo::addToMainLog("Kernel", text.c_str());
}

} // namespace

SettingRemark makeFormerNameRemark(Parameter const& parameter, char const* given, StoredOrigin const& origin) {
    return {Rule::FORMER_NAME, parameter,
            '"' + std::string(given) + "\" is the former name of \"" + parameter.getName() + '"', origin};
}

SettingRemark makeDeprecationRemark(Parameter const& parameter, StoredOrigin const& origin) {
    return {Rule::DEPRECATED_SETTING, parameter,
            '"' + std::string(parameter.getName()) + "\" is deprecated: " + parameter.getDeprecation(), origin};
}

RemarkListener::RemarkListener() noexcept : mBefore(currentListener) { currentListener = this; }

RemarkListener::~RemarkListener() { currentListener = mBefore; }

void RemarkListener::tell(SettingRemark const& remark) {
    if (currentListener) {
        currentListener->hear(remark);
    } else {
        log(remark);
    }
}

void RemarkLog::hear(SettingRemark const& remark) {
    if (mKnown.emplace(remark.rule, remark.parameter.getId()).second) {
        log(remark);
    }
}

} // namespace kivo::configuration
