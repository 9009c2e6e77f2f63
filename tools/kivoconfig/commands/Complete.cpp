// Prints what can stand at the end of a tool's command line, a candidate a line: the word and, after a tab, what it
// means. A line that begins with the tab asks the shell for names of files or directories.

#include "Commands.h"
#include "Installation.h"
#include "settings/SettingTexts.h"
#include "settings/TypedWords.h"
#include "text/Characters.h"
#include "text/CodePage.h"
#include "text/WordWrap.h"

#include <configuration/Parameter.h>

#include <sstream>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

constexpr std::size_t DESCRIPTION_WIDTH = 72;

/// The candidates, as they are printed: all of them or, when something is wrong, none.
class Candidates {
public:
    explicit Candidates(TypedWords const& words) : mWords(words) {}

    void addFlags() {
        for (auto const* setting : mWords.findFurtherFlags()) {
            addFlag(flagOf(setting->parameter), descriptionOf(setting->parameter));
        }
        addFlag(FILE_FLAG, "Read values from this file");
    }

    void addValues() {
        auto const* const setting = mWords.getSettingBefore();
        if (mWords.isAfterFileFlag()) {
            mText << "\tfiles\n";
        } else if (setting) {
            for (auto const& label : labelsOf(setting->parameter)) {
                if (label.starts_with(mWords.getLast()) && !label.starts_with('-')) {
                    add(label, "");
                }
            }
            auto const valueName = folded(valueNameOf(setting->parameter));
            mText << (valueName == "file" ? "\tfiles\n" : valueName == "directory" ? "\tdirectories\n" : "");
        }
    }

    std::string getText() const { return toLocal(mText.str()); }

private:
    void addFlag(std::string const& flag, std::string const& description) {
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
    std::ostringstream mText;
};

std::string findCandidates(Call const& call) {
    std::vector<std::string> words;
    for (auto const& argument : call.arguments) {
        words.push_back(toUtf8(argument));
    }
    TypedWords const typed(findSpecification(call.specification), std::move(words));
    Candidates candidates(typed);
    if (typed.canBeValue()) {
        candidates.addValues();
    }
    if (typed.canBeFlag()) {
        candidates.addFlags();
    }
    return candidates.getText();
}

} // namespace

Work prepareComplete(CLI::App& options, Call& call) {
    addSpecification(options, call);
    return [&call] {
        call.out << findCandidates(call);
        return NO_ERROR_FOUND;
    };
}

} // namespace kivoconfig
