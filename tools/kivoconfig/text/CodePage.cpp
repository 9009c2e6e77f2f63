#include "text/CodePage.h"

#include "text/Characters.h"

#include <cerrno>

#include <iconv.h>
#include <langinfo.h>

namespace kivoconfig {

namespace {

/// A converter of the system, which keeps its state in a descriptor.
class Converter {
public:
    Converter(char const* to, char const* from) : mDescriptor(iconv_open(to, from)) {}
    ~Converter() {
        if (isOpen()) {
            iconv_close(mDescriptor);
        }
    }
    Converter(Converter const&) = delete;
    Converter& operator=(Converter const&) = delete;

    bool isOpen() const { return mDescriptor != reinterpret_cast<iconv_t>(-1); }

    /// Converts as much as it can. @return the rest, which begins with what does not convert
    std::string_view convert(std::string_view text, std::string& result) const {
        auto* position = const_cast<char*>(text.data()); // which iconv only reads
        auto left = text.size();
        iconv(mDescriptor, nullptr, nullptr, nullptr, nullptr);
        bool isStuck = false;
        while (left > 0 && !isStuck) {
            char buffer[4096];
            char* end = buffer;
            auto room = sizeof(buffer);
            isStuck =
                iconv(mDescriptor, &position, &left, &end, &room) == static_cast<std::size_t>(-1) && errno != E2BIG;
            result.append(buffer, end);
        }
        return text.substr(text.size() - left);
    }

private:
    iconv_t mDescriptor;
};

std::string_view codePage() {
    std::string_view const name = nl_langinfo(CODESET);
    return name == "ANSI_X3.4-1968" ? "UTF-8" : name; // the former is how the locale "C" calls plain ASCII
}

/// UTF-8 in which everything is a character.
std::string repaired(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        appendCharacter(result, takeCharacter(text));
    }
    return result;
}

} // namespace

std::string toUtf8(std::string_view local) {
    if (codePage() == "UTF-8") {
        return repaired(local);
    }
    static Converter const converter("UTF-8", nl_langinfo(CODESET));
    std::string result;
    while (converter.isOpen() && !local.empty()) {
        local = converter.convert(local, result);
        if (!local.empty()) {
            appendCharacter(result, REPLACEMENT);
            local.remove_prefix(1);
        }
    }
    return result;
}

std::string toLocal(std::string_view utf8) {
    if (codePage() == "UTF-8") {
        return std::string(utf8);
    }
    static Converter const converter(nl_langinfo(CODESET), "UTF-8");
    std::string result;
    while (converter.isOpen() && !utf8.empty()) {
        utf8 = converter.convert(utf8, result);
        if (!utf8.empty()) {
            takeCharacter(utf8);
            result += '?';
        }
    }
    return result;
}

} // namespace kivoconfig
