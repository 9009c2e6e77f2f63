#include "kernel/kvProcessInit.h"

#include <configuration/InspectedText.h>

#include "inspection/InspectedTextImpl.h"
#include "schema/SecretMask.h"

#include <utility>

namespace kivo::configuration {

InspectedText::InspectedText(std::shared_ptr<Impl const> impl) noexcept : mImpl(std::move(impl)) {}

InspectedText::InspectedText(InspectedText const&) noexcept = default;

InspectedText& InspectedText::operator=(InspectedText const&) noexcept = default;

InspectedText::~InspectedText() = default;

char const* InspectedText::getText() const noexcept {
    return mImpl->isSecret && mImpl->text ? SECRET_MASK : revealText();
}

char const* InspectedText::revealText() const noexcept { return mImpl->text ? mImpl->text->c_str() : nullptr; }

Origin InspectedText::getOrigin() const { return mImpl->origin; }

InspectedText::Verdict InspectedText::getVerdict() const noexcept { return mImpl->verdict; }

char const* InspectedText::getVerdictName(Verdict verdict) noexcept {
    switch (verdict) {
    case WINS: return "wins";
    case OVERRIDDEN: return "overridden";
    case MERGED_AWAY: return "merged-away";
    case EXCLUDED: return "excluded";
    case MISPLACED: return "misplaced";
    case NOT_USED: return "not-used";
    }
    return "";
}

} // namespace kivo::configuration
