#pragma once

#include "schema/Rule.h"
#include "schema/StoredOrigin.h"

#include <set>
#include <string>
#include <utility>

namespace kivo::configuration {

class Parameter;

/// Something about a given text that is no fault, but that its user should change.
struct SettingRemark {
    Rule rule; ///< FORMER_NAME or DEPRECATED_SETTING
    Parameter const& parameter;
    std::string message; ///< without the text, which may be secret
    StoredOrigin const& origin;
    std::string section = {}; ///< before the setting's id in its full name, where whoever remarks knows it
};

/// A setting that is given by the name that it had before. @param given as it is written
SettingRemark makeFormerNameRemark(Parameter const& parameter, char const* given, StoredOrigin const& origin);
/// A setting that is deprecated.
SettingRemark makeDeprecationRemark(Parameter const& parameter, StoredOrigin const& origin);

/// Hears what is remarked on this thread while it lives. Of several listeners the one made last hears it. Between the
/// two may be a provider of the caller's own, so nothing can be handed through.
class RemarkListener {
public:
    RemarkListener() noexcept;
    RemarkListener(RemarkListener const&) = delete;
    RemarkListener& operator=(RemarkListener const&) = delete;
    virtual ~RemarkListener();

    /// Where nobody listens, a remark becomes a record in the main log.
    static void tell(SettingRemark const& remark);

private:
    virtual void hear(SettingRemark const& remark) = 0;

    RemarkListener* const mBefore;
};

/// Listens to a request: makes one record in the main log for each setting, however often it is given.
class RemarkLog final : public RemarkListener {
private:
    void hear(SettingRemark const& remark) override;

    std::set<std::pair<Rule, std::string>> mKnown; // with the ids of settings
};

} // namespace kivo::configuration
