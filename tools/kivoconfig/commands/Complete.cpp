// Prints what can stand at the end of a tool's command line, a candidate a line: the word and, after a tab, what it
// means. A line that begins with the tab asks the shell for names of files or directories.

#include "Commands.h"
#include "Inputs.h"
#include "Installation.h"
#include "settings/SettingTexts.h"
#include "settings/TypedWords.h"
#include "text/Characters.h"
#include "text/CodePage.h"
#include "text/WordWrap.h"

#include <configuration/Parameter.h>

#include <memory>
#include <sstream>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

constexpr std::size_t DESCRIPTION_WIDTH = 72;

/// The candidates, as they are printed: all of them or, when something is wrong, none.
class Candidates {
public:
    Candidates(TypedWords const& words, bool isGnu) : mWords(words), mIsGnu(isGnu) {}

    void addFlags() {
        bool declaresHelp = false;
        for (auto const* flag : mWords.findFurtherFlags()) {
            auto const& parameter = flag->setting.parameter;
            addFlag(flag->name, descriptionOf(parameter));
            if (mIsGnu && isSwitch(parameter) && mWords.getLast().size() > 2) {
                addFlag("no-" + flag->name, descriptionOf(parameter));
            }
            declaresHelp = declaresHelp || folded(flag->name) == "help";
        }
        if (mIsGnu && !declaresHelp) {
            addFlag("help", "Ask for help");
        }
        addFlag(FILE_FLAG + 1, "Read values from this file");
    }

    void addValues() {
        auto const* const setting = mWords.getSettingBefore();
        if (mWords.isAfterFileFlag()) {
            mText << "\tfiles\n";
        } else if (setting) {
            for (auto const& label : labelsOf(setting->parameter)) {
                bool const isFlag = label.starts_with('-') && mWords.getJoined().empty();
                if (label.starts_with(mWords.getLast()) && !isFlag) {
                    add(mWords.getJoined() + label, "");
                }
            }
            auto const valueName = folded(valueNameOf(setting->parameter));
            mText << (valueName == "file" ? "\tfiles\n" : valueName == "directory" ? "\tdirectories\n" : "");
        }
    }

    std::string getText() const { return toLocal(mText.str()); }

private:
    void addFlag(std::string const& name, std::string const& description) {
        auto const flag = mWords.getDashes() + name;
        if (folded(flag).starts_with(folded(mWords.getLast()))) {
            add(flag, description);
        }
    }

    /// Nobody can type controls.
    void add(std::string const& word, std::string const& description) {
        if (!word.empty() && printable(word) == word) {
            auto const lines = wrapWords(description, DESCRIPTION_WIDTH);
            mText << word << (lines.empty() ? "" : '\t' + lines.front()) << (lines.size() > 1 ? " ...\n" : "\n");
        }
    }

    TypedWords const& mWords;
    bool mIsGnu;
    std::ostringstream mText;
};

std::string findCandidates(Call const& call, bool isGnu) {
    std::vector<std::string> words;
    for (auto const& argument : call.arguments) {
        words.push_back(toUtf8(argument));
    }
    auto const style = isGnu ? GNU_COMMAND_LINE : PLAIN_COMMAND_LINE;
    TypedWords const typed(findSpecification(call.specification), style, std::move(words));
    Candidates candidates(typed, isGnu);
    if (typed.canBeValue()) {
        candidates.addValues();
    }
    if (typed.canBeFlag()) {
        candidates.addFlags();
    }
    return candidates.getText();
}

} // namespace

Work prepareComplete(CommandOptions& options, Call& call) {
    auto const isGnu = std::make_shared<bool>(false);
    addSpecification(options, call);
    addGnu(options, *isGnu);
    return [&call, isGnu] {
        call.out << findCandidates(call, *isGnu);
        return NO_ERROR_FOUND;
    };
}

} // namespace kivoconfig
