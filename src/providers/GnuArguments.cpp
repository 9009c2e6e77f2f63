#include "kernel/kvProcessInit.h"

#include "providers/GnuArguments.h"

#include <configuration/Flags.h>
#include <configuration/Parameter.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include "providers/CommandLineArguments.h"
#include "providers/GnuFlags.h"
#include "providers/HelpRequest.h"
#include "schema/Rule.h"
#include "schema/StoredOrigin.h"
#include "schema/ValueTypes.h"
#include "values/ChildSearch.h"
#include "values/GroupEditing.h"
#include "values/ValueItemUtil.h"
#include "visitors/SettingRemarks.h"

#include <algorithm>
#include <map>
#include <set>

namespace kivo::configuration {

namespace {

constexpr std::string_view HELP_LETTER = "h";
constexpr std::string_view NEGATION = "no-";

/// What a flag means.
struct Meaning {
    enum Kind { SETTING, NEGATED_SETTING, REQUEST, UNKNOWN, AMBIGUOUS, GROUP };
    Kind kind = UNKNOWN;
    GnuFlags::Names names = {};    ///< the setting; those that it may be
    char const* request = nullptr; ///< HELP or VERSION
};

/// A flag on a command line.
struct GivenFlag {
    std::size_t position; ///< of its argument
    std::string name;
    std::optional<std::string> value;
    bool isValueNext; ///< whether its value is the next argument
    Meaning const* meaning;
};

bool isWord(std::string_view argument) { return !argument.starts_with('-') || argument == "-"; }

bool isSwitch(Parameter const& parameter) {
    return parameter.isOptional() && parameter.getValueType() == Parameter::BOOLEAN_PARAMETER;
}

/// Whether an argument that begins with a dash is a negative number, so that a flag of a number can take it. Types
/// without such numbers take it, too: it is what the user meant to give, and the type says what is wrong with it.
bool isNegativeNumber(std::string const& argument, Parameter const& parameter) {
    auto const& type = traitsOf(parameter.getValueType());
    return type.compare && !argument.starts_with("--") &&
           (traitsOf(Parameter::DOUBLE_PARAMETER).accepts(argument.c_str()) || type.accepts(argument.c_str() + 1));
}

/// Reads arguments one after the other, and finds what their flags mean.
class GnuReader {
public:
    GnuReader(GnuArguments const& arguments, Specification const& specification, int flags)
        : mArguments(arguments),
          mResolvesNames((flags & RESOLVE_FLAG_NAMES) != 0),
          mFlags(*specification.getParameterGroup(), mResolvesNames) {}

    /// @param onFlag  called with each GivenFlag
    /// @param onOther called with the position of each argument that belongs to no flag
    template <class OnFlag, class OnOther>
    void read(OnFlag onFlag, OnOther onOther) {
        bool isAfterFlags = false;
        for (std::size_t i = 1; i < mArguments.texts.size(); ++i) {
            auto const& text = mArguments.texts[i];
            auto const flag = isAfterFlags ? std::nullopt : parseGnuFlag(text);
            if (!isAfterFlags && text == END_OF_FLAGS) {
                isAfterFlags = true;
            } else if (!flag) {
                onOther(i);
            } else {
                auto const given = complete(*flag, i);
                i += given.isValueNext ? 1 : 0;
                onFlag(given);
            }
        }
    }

    GnuFlags const& getFlags() const { return mFlags; }

private:
    GivenFlag complete(GnuFlag const& flag, std::size_t position) {
        GivenFlag given{position, std::string(flag.name), std::nullopt, false, &meaningOf(flag.name, position)};
        if (flag.value) {
            given.value = std::string(*flag.value);
        } else if (takesNext(*given.meaning, position)) {
            given.value = mArguments.texts[position + 1];
            given.isValueNext = true;
        }
        return given;
    }

    /// What stood between two arguments and was taken out separates them.
    bool takesNext(Meaning const& meaning, std::size_t position) const {
        auto const next = position + 1;
        if (next == mArguments.texts.size() || mArguments.indexes[next] != mArguments.indexes[position] + 1) {
            return false;
        }
        auto const& argument = mArguments.texts[next];
        if (meaning.kind == Meaning::SETTING) {
            auto const& parameter = mFlags.parameterOf(*meaning.names.front());
            return !isSwitch(parameter) && (isWord(argument) || isNegativeNumber(argument, parameter));
        }
        return meaning.kind != Meaning::NEGATED_SETTING && meaning.kind != Meaning::REQUEST && isWord(argument);
    }

    /// "-h" with one dash asks for help, where "--h" is the beginning of a name.
    Meaning const& meaningOf(std::string_view name, std::size_t position) {
        bool const isLetter = equalIgnoringCase(name, HELP_LETTER) && !mArguments.texts[position].starts_with("--");
        auto const [entry, isNew] = (isLetter ? mLetterMeanings : mMeanings).try_emplace(std::string(name));
        if (isNew) {
            entry->second = find(name, isLetter);
        }
        return entry->second;
    }

    Meaning find(std::string_view name, bool isLetter) const {
        auto const full = mFlags.findFull(name);
        bool const isOutsideOfSections = !full.empty() && mFlags.sectionOf(*full.front()).depth == 0;
        if (isOutsideOfSections) {
            return settingOf(full);
        }
        if (isLetter) {
            return find(HELP, false);
        }
        if (equalIgnoringCase(name, HELP)) {
            return {Meaning::REQUEST, {}, HELP};
        }
        if (mArguments.hasVersionFlag && equalIgnoringCase(name, VERSION)) {
            return {Meaning::REQUEST, {}, VERSION};
        }
        return full.empty() ? findInexact(name) : settingOf(full);
    }

    Meaning findInexact(std::string_view name) const {
        if (beginsIgnoringCase(name, NEGATION)) {
            auto const negated = mFlags.findFull(name.substr(NEGATION.size()));
            if (negated.size() == 1 && isSwitch(mFlags.parameterOf(*negated.front()))) {
                return {Meaning::NEGATED_SETTING, negated};
            }
        }
        if (auto const shortened = mFlags.findShortened(name); mResolvesNames && !shortened.empty()) {
            return settingOf(shortened);
        }
        return {mFlags.isGroup(name) ? Meaning::GROUP : Meaning::UNKNOWN};
    }

    static Meaning settingOf(GnuFlags::Names const& names) {
        return {names.size() == 1 ? Meaning::SETTING : Meaning::AMBIGUOUS, names};
    }

    using Meanings = std::map<std::string, Meaning, CaseInsensitiveLess>;

    GnuArguments const& mArguments;
    bool mResolvesNames;
    GnuFlags mFlags;
    Meanings mMeanings; ///< of the flags so far
    Meanings mLetterMeanings;
};

/// Makes the values of arguments, or notes what is wrong with them.
class GnuSplitter {
public:
    GnuSplitter(GnuArguments const& arguments, Specification const& specification, int flags, ParameterErrors& faults)
        : mArguments(arguments), mFaults(faults), mReader(arguments, specification, flags) {
        mSplit.values = makeArguments();
        ValueItemUtil().setParameterItemId(*mSplit.values, specification.getId());
    }

    GnuValues split() {
        mReader.read([this](GivenFlag const& flag) { add(flag); }, [this](std::size_t position) { refuse(position); });
        return std::move(mSplit);
    }

private:
    StoredOrigin originOf(std::size_t position) const {
        return StoredOrigin::ofCommandLine().at(mArguments.indexes[position]);
    }

    void refuse(std::size_t position) {
        auto const& text = mArguments.texts[position];
        mFaults.addFault(text.empty() ? Rule::EMPTY_ARGUMENT : Rule::UNEXPECTED_ARGUMENT, originOf(position), "%s",
                         composeUnexpectedArgument(text).c_str());
    }

    void add(GivenFlag const& flag) {
        auto const origin = originOf(flag.position);
        char const* const text = flag.value ? flag.value->c_str() : nullptr;
        if (flag.name.empty()) {
            mFaults.addFault(Rule::EMPTY_ARGUMENT, origin, "A command line parameter cannot be empty");
            return;
        }
        switch (flag.meaning->kind) {
        case Meaning::SETTING: addSetting(*flag.meaning->names.front(), text, origin); return;
        case Meaning::UNKNOWN: mSplit.values->addValueAt(flag.name.c_str(), text, origin); return;
        case Meaning::AMBIGUOUS: addAmbiguous(flag, origin); return;
        case Meaning::GROUP:
            mFaults.addFault(Rule::WRONG_KIND, origin, "\"%s\" is not a parameter", flag.name.c_str());
            return;
        case Meaning::NEGATED_SETTING:
        case Meaning::REQUEST: break;
        }
        if (text) {
            mFaults.addFault(Rule::INVALID_VALUE, origin, "The \"%s\" flag takes no value", flag.name.c_str());
        } else if (flag.meaning->kind == Meaning::REQUEST) {
            addRequest(flag.meaning->request, origin);
        } else {
            addSetting(*flag.meaning->names.front(), "false", origin);
        }
    }

    /// Binds values here, because a search by id, or by a former name, may find a setting of another section.
    void addSetting(GnuFlags::Name const& name, char const* text, StoredOrigin const& origin) {
        auto const& flags = mReader.getFlags();
        auto const& section = flags.sectionOf(name);
        if (!section.obstacle.empty()) {
            mFaults.addFault(Rule::MISPLACED_SETTING, origin, "\"%s\" cannot be given on the command line: %s",
                             flags.flagOf(name).c_str(), section.obstacle.c_str());
            return;
        }
        auto const& parameter = flags.parameterOf(name);
        if (name.isFormer) {
            auto remark = makeFormerNameRemark(parameter, parameter.getFormerName(), origin);
            remark.section = section.prefix;
            RemarkListener::tell(remark);
        }
        auto& group = enter(section, origin);
        group.addValueAt(parameter.getId(), text, origin);
        auto* const value = findChildValue(group, parameter.getId());
        if (value && value->getItemState() != ParameterValueItem::ASSIGNED) {
            ValueItemUtil().assignParameterItem(*value, &parameter);
        }
    }

    ParameterValueGroup& enter(GnuFlags::Section const& section, StoredOrigin const& origin) {
        if (section.depth == 0) {
            return *mSplit.values;
        }
        auto& holder = enter(mReader.getFlags().around(section), origin);
        auto& group = findOrAddGroup(holder, section.group->getId(), *section.group);
        if (!group.getStoredOrigin().isKnown()) {
            group.setStoredOrigin(origin);
        }
        return group;
    }

    /// Says so once for each flag, since a list of names is long.
    void addAmbiguous(GivenFlag const& flag, StoredOrigin const& origin) {
        if (!mReported.insert(flag.meaning).second) {
            return;
        }
        std::string message = "The flag \"" + flag.name + "\" is ambiguous, matching the following allowed flags: ";
        for (auto const* name : flag.meaning->names) {
            message.append(name == flag.meaning->names.front() ? "" : ", ").append(mReader.getFlags().flagOf(*name));
        }
        mFaults.addFault(Rule::AMBIGUOUS_FLAG, origin, "%s", message.append(". Please be more specific.").c_str());
    }

    void addRequest(char const* name, StoredOrigin const& origin) {
        auto const isSame = [name](auto const& request) {
            return equalIgnoringCase(request->getParameterItemId(), name);
        };
        if (std::ranges::none_of(mSplit.requests, isSame)) {
            mSplit.requests.push_back(makeRequest(name, origin));
        }
    }

    GnuArguments const& mArguments;
    ParameterErrors& mFaults;
    GnuReader mReader;
    GnuValues mSplit;
    std::set<Meaning const*> mReported;
};

} // namespace

std::optional<GnuFlag> parseGnuFlag(std::string_view argument) {
    if (isWord(argument)) {
        return std::nullopt;
    }
    argument.remove_prefix(argument.starts_with(END_OF_FLAGS) ? 2 : 1);
    auto const sign = argument.find('=');
    if (sign == std::string_view::npos) {
        return GnuFlag{argument, std::nullopt};
    }
    return GnuFlag{argument.substr(0, sign), argument.substr(sign + 1)};
}

GnuValues splitGnuArguments(GnuArguments const& arguments, Specification const& specification, int flags,
                            ParameterErrors& faults) {
    return GnuSplitter(arguments, specification, flags, faults).split();
}

bool removeGnuFlag(GnuArguments& arguments, Specification const& specification, std::string_view name) {
    std::vector<bool> isRemoved(arguments.texts.size());
    GnuReader(arguments, specification, RESOLVE_FLAG_NAMES)
        .read(
            [&](GivenFlag const& flag) {
                if (equalIgnoringCase(flag.name, name)) {
                    isRemoved[flag.position] = true;
                    isRemoved[flag.position + (flag.isValueNext ? 1 : 0)] = true;
                }
            },
            [](std::size_t) {});
    GnuArguments kept{{}, {}, arguments.hasVersionFlag};
    for (std::size_t i = 0; i < isRemoved.size(); ++i) {
        if (!isRemoved[i]) {
            kept.texts.push_back(std::move(arguments.texts[i]));
            kept.indexes.push_back(arguments.indexes[i]);
        }
    }
    std::swap(arguments, kept);
    return kept.texts.size() != arguments.texts.size();
}

} // namespace kivo::configuration
