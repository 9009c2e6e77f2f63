#include "support/WalkLog.h"

#include "support/ValueTree.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueVisitor.h>
#include <configuration/ParameterVisitor.h>

#include <exception>

namespace kivo::test {

using namespace configuration;

namespace {

struct Log {
    explicit Log(WalkOptions const& walkOptions) : options(walkOptions) {}

    /// @return whether the item of this id is not to be declined
    bool add(std::string const& event, std::string const& id = {}) {
        line += (line.empty() ? "" : " ") + event;
        if (options.onEvent) {
            options.onEvent(event);
        }
        return id.empty() || id != options.decline;
    }

    WalkOptions const& options;
    std::string line;
};

struct SchemaLogger final : ParameterVisitor, Log {
    using Log::Log;
    bool visitGroupStart(ParameterGroup const& group) override {
        return add(std::string("<") + group.getId(), group.getId());
    }
    void visitGroupMiddle(ParameterGroup const&) override { add("|"); }
    void visitGroupEnd(ParameterGroup const& group) override { add(std::string(">") + group.getId()); }
    bool visitParameter(Parameter const& parameter) override { return add(parameter.getId(), parameter.getId()); }
};

struct ValueLogger final : ParameterValueVisitor, Log {
    explicit ValueLogger(WalkOptions const& walkOptions)
        : ParameterValueVisitor(walkOptions.isMutator), Log(walkOptions) {}
    bool visitGroupStart(ParameterValueGroup& group) override { return add("<" + idOf(group), idOf(group)); }
    void visitGroupEnd(ParameterValueGroup& group) override { add(">" + idOf(group)); }
    bool visitParameterValue(ParameterValue& value) override {
        return add(idOf(value) + "=" + textsOf(value), idOf(value));
    }
};

template <class Logger, class Item>
std::string logOf(Item& item, WalkOptions const& options) {
    Logger logger(options);
    try {
        item.accept(logger);
    } catch (std::exception const& thrown) {
        logger.line += std::string(" !") + thrown.what();
    }
    return logger.line;
}

} // namespace

std::string walkLog(ParameterItem const& item, WalkOptions const& options) {
    return logOf<SchemaLogger>(item, options);
}

std::string walkLog(ParameterValueItem& item, WalkOptions const& options) { return logOf<ValueLogger>(item, options); }

} // namespace kivo::test
