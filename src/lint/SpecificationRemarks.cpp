#include "kernel/kvProcessInit.h"

#include "lint/SpecificationRemarks.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>

#include "lint/RegistryContents.h"
#include "schema/ItemKinds.h"
#include "schema/QuotedText.h"
#include "schema/ValueTypes.h"

#include <algorithm>

namespace kivo::configuration {

namespace {

/// So many items of all specifications are looked at. A few groups that many specifications refer to could add up to
/// any number.
constexpr unsigned long MAX_ITEMS = 1000000;

bool isSignedNumber(Parameter const& parameter) {
    auto const type = parameter.getValueType();
    bool const isSigned =
        type == Parameter::INT_PARAMETER || type == Parameter::LONG_PARAMETER || type == Parameter::DOUBLE_PARAMETER;
    char const* const minimum = parameter.getMinimum();
    return isSigned && !(minimum && traitsOf(type).compare(minimum, "0") >= 0);
}

class SpecificationWalk {
public:
    explicit SpecificationWalk(RegistryContents& contents) : mContents(contents) {
        for (auto const* parameter : contents.record.parameters) {
            mDeclared.emplace(parameter->getId(), parameter);
        }
    }

    void lookAt(ParameterGroup const& root);
    void lookForUnused();

private:
    /// The items of one container, those of its constraints included.
    struct Container {
        ParameterGroup const& group;
        bool isRoot;
        std::set<std::string_view, CaseInsensitiveLess> names;
        std::set<std::string_view, CaseInsensitiveLess> parameterIds;
        std::set<std::string_view, CaseInsensitiveLess> groupIds;
    };
    /// A visible setting.
    struct Flag {
        std::string_view name;
        bool isUsable; ///< whether it does not stand in a section
        StoredOrigin place;
    };

    void lookAtContainer(ParameterGroup const& group, bool isRoot);
    void lookAtItems(ParameterGroup const& group, Container& container);
    bool isRepeated(ParameterItem const& item, Container& container, StoredOrigin const& place);
    void lookAtParameter(Parameter const& parameter, Container const& container, StoredOrigin const& place);
    void lookAtSign(Parameter const& parameter);
    void compareFlags();
    void use(ParameterGroup const& group);
    void warn(Rule rule, std::string const& message, StoredOrigin const& place) {
        mContents.findings.add(Finding::WARNING_SEVERITY, rule, message, place);
    }

    RegistryContents& mContents;
    std::map<std::string_view, Parameter const*, CaseInsensitiveLess> mDeclared;
    std::unordered_set<Parameter const*> mUsed;
    std::unordered_set<ParameterGroup const*> mUsedGroups; // whose parameters all are in mUsed
    std::unordered_set<Parameter const*> mSigned;          // already reported
    unsigned long mItems = 0;
    ParameterGroup const* mRoot = nullptr;
    std::vector<Flag> mFlags;
};

void SpecificationWalk::lookAt(ParameterGroup const& root) {
    mRoot = &root;
    mFlags.clear();
    lookAtContainer(root, true);
    if (mItems <= MAX_ITEMS) {
        compareFlags();
    } else {
        use(root);
        warn(Rule::UNCHECKED_SPECIFICATION,
             quoted(root.getName()) + " was not looked at: the specifications unfold to more than " +
                 std::to_string(MAX_ITEMS) + " items together",
             StoredOrigin(root.getDeclarationOrigin()));
    }
}

void SpecificationWalk::lookAtContainer(ParameterGroup const& group, bool isRoot) {
    Container container{group, isRoot, {}, {}, {}};
    lookAtItems(group, container);
}

void SpecificationWalk::lookAtItems(ParameterGroup const& group, Container& container) {
    auto const places = mContents.record.itemPlaces.find(&group);
    for (unsigned long i = 0; i < group.getNumberOfItems() && ++mItems <= MAX_ITEMS; ++i) {
        auto const* const item = group.getItem(i);
        auto const& place = places->second[i];
        if (isRepeated(*item, container, place)) {
            continue;
        }
        if (auto const* const parameter = asParameter(item)) {
            lookAtParameter(*parameter, container, place);
        } else if (auto const* const inner = asGroup(item)) {
            inner->getGroupType() == ParameterGroup::CONTAINER ? lookAtContainer(*inner, false)
                                                               : lookAtItems(*inner, container);
        }
    }
}

bool SpecificationWalk::isRepeated(ParameterItem const& item, Container& container, StoredOrigin const& place) {
    bool const isParameter = item.getItemType() == ParameterItem::PARAMETER;
    bool const isNewName = container.names.insert(item.getName()).second;
    bool const isNewId = (isParameter ? container.parameterIds : container.groupIds).insert(item.getId()).second;
    if (!isNewName || !isNewId) {
        warn(Rule::REPEATED_NAME,
             quoted(item.getName()) + " stands more than once in " + quoted(container.group.getName()), place);
    }
    if (isParameter) {
        if (auto const declared = mDeclared.find(item.getId()); declared != mDeclared.end()) {
            mUsed.insert(declared->second);
        }
    }
    return !isNewId;
}

void SpecificationWalk::lookAtParameter(Parameter const& parameter, Container const& container,
                                        StoredOrigin const& place) {
    if (!parameter.isHidden()) {
        mFlags.push_back({parameter.getName(), container.isRoot, place});
    }
    auto const name = quoted(parameter.getName());
    if (!parameter.isOptional() && parameter.isHidden() && !parameter.getDefaultValue()) {
        warn(Rule::REQUIRED_HIDDEN, name + " is required, but hidden: no help tells users that they have to give it",
             place);
    }
    if (!parameter.isOptional() && parameter.getDeprecation()) {
        warn(Rule::REQUIRED_DEPRECATED, name + " is required, but deprecated: users cannot do without it", place);
    }
    if (container.isRoot) {
        lookAtSign(parameter);
    }
}

void SpecificationWalk::lookAtSign(Parameter const& parameter) {
    auto const declared = mDeclared.find(parameter.getId());
    if (declared == mDeclared.end() || !isSignedNumber(parameter)) {
        return;
    }
    auto const* const base = declared->second;
    if (!mContents.standIns.contains(base) && mSigned.insert(base).second) {
        warn(Rule::SIGNED_NUMBER,
             quoted(base->getName()) +
                 " may be negative, but the command line takes negative numbers in GNU style only",
             StoredOrigin(base->getDeclarationOrigin()));
    }
}

/// In order, a name stands directly before those that it begins.
void SpecificationWalk::compareFlags() {
    std::ranges::stable_sort(mFlags, CaseInsensitiveLess(), &Flag::name);
    for (auto flag = mFlags.begin(); flag != mFlags.end(); ++flag) {
        auto const isBegun = [flag](auto const& other) { return beginsIgnoringCase(other->name, flag->name); };
        auto const next = flag + 1;
        auto const* const other = next != mFlags.end() && isBegun(next)         ? &*next
                                  : flag != mFlags.begin() && isBegun(flag - 1) ? &*(flag - 1)
                                                                                : nullptr;
        if (flag->isUsable && other) {
            auto const relation = equalIgnoringCase(flag->name, other->name)
                                      ? std::string(" is the name")
                                      : " begins the name " + quoted(other->name);
            warn(Rule::UNUSABLE_FLAG,
                 quoted(flag->name) + relation + " of another setting of " + quoted(mRoot->getName()) +
                     ": where names are resolved, it can never be a flag",
                 flag->place);
        }
    }
}

/// Marks what a group refers to as used. Each group is entered once, however many refer to it.
void SpecificationWalk::use(ParameterGroup const& group) {
    std::vector<ParameterGroup const*> groups{&group};
    while (!groups.empty()) {
        auto const& each = *groups.back();
        groups.pop_back();
        for (unsigned long i = 0; i < each.getNumberOfItems(); ++i) {
            auto const* const item = each.getItem(i);
            if (auto const* const inner = asGroup(item)) {
                mUsedGroups.insert(inner).second ? groups.push_back(inner) : void();
            } else if (auto const declared = mDeclared.find(item->getId()); declared != mDeclared.end()) {
                mUsed.insert(declared->second);
            }
        }
    }
}

void SpecificationWalk::lookForUnused() {
    if (mContents.isIncomplete) {
        return; // the file that cannot be read may use them
    }
    for (auto const& [group, places] : mContents.record.itemPlaces) {
        if (mContents.excused.contains(group->getId())) {
            use(*group);
        }
    }
    for (auto const* parameter : mContents.record.parameters) {
        if (!mUsed.contains(parameter) && !mContents.excused.contains(parameter->getId())) {
            warn(Rule::UNUSED_PARAMETER, "no specification uses " + quoted(parameter->getId()),
                 StoredOrigin(parameter->getDeclarationOrigin()));
        }
    }
}

} // namespace

void remarkOnSpecifications(RegistryContents& contents) {
    SpecificationWalk walk(contents);
    for (auto const* root : contents.record.specifications) {
        walk.lookAt(*root);
    }
    walk.lookForUnused();
}

} // namespace kivo::configuration
