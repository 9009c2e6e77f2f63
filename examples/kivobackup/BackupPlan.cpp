#include "BackupPlan.h"

#include "toolkit/Help.h"

#include <configuration/ValueGroup.h>
#include <configuration/ValueGroupIterator.h>

#include <sstream>

using namespace kivo::configuration;

BackupPlan::BackupPlan(ValueGroup const& settings)
    : mDatabase(settings.getValue("database").asString()),
      mTargets{settings.getValue("target").asString()},
      mStreams(settings.getValue("parallel").asUnsignedInteger()) {
    // Of a choice, only what was chosen has a value.
    if (!toolkit::isSet(settings, "full")) {
        mScope = toolkit::isSet(settings, "incremental") ? Scope::INCREMENTAL : Scope::OBJECTS;
    }
    if (Value const rateLimit = settings.getValue("rateLimit"); !rateLimit.isNull()) {
        mRateLimit = rateLimit.asDouble();
    }
    // Where no mirror was given, there is one with nothing but defaults; from the second one on, there are no defaults.
    ValueGroupIterator mirror = settings.getValueGroupIterator("mirror");
    while (mirror.next()) {
        if (Value const location = mirror.getValue("location"); !location.isNull() && !location.isDefaultValue()) {
            mTargets.emplace_back(location.asString());
        }
    }
}

std::string BackupPlan::describe() const {
    std::ostringstream text;
    text << "Backing up "
         << (mScope == Scope::FULL          ? "all"
             : mScope == Scope::INCREMENTAL ? "changes"
                                            : "objects")
         << " of " << mDatabase << " to ";
    for (std::size_t i = 0; i < mTargets.size(); ++i) {
        text << (i > 0 ? " and " : "") << mTargets[i];
    }
    text << " in " << mStreams << " streams";
    if (mRateLimit > 0) {
        text << ", at most " << mRateLimit << " MB/s";
    }
    return text.str();
}
