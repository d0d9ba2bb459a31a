#include "terminal/desktop/CellFlashes.h"

#include <utility>

namespace quorin {

namespace {

constexpr int AttributeBits = 32;

quint64 KeyOf(Integer record, Integer attribute) {
    return (static_cast<quint64>(static_cast<quint32>(record)) << AttributeBits) |
           static_cast<quint32>(attribute);
}

} // namespace

void TCellFlashes::Flash(Integer record, Integer attribute, TPriceChangeState state) {
    if (state == pcsNone) return;
    FFlashes.insert(KeyOf(record, attribute), {state, FClock.elapsed()});
}

void TCellFlashes::Compare(Integer record, Integer attribute, std::size_t identity, Double number) {
    TDrawn& drawn = FDrawn[KeyOf(record, attribute)];
    const bool isSame = drawn.Identity == identity && drawn.Frame == FFrame - 1;
    if (isSame && number != drawn.Number) {
        Flash(record, attribute, number > drawn.Number ? pcsUp : pcsDown);
    }
    drawn = {identity, number, FFrame};
}

const TCellFlashes::TFlash* TCellFlashes::Find(Integer record, Integer attribute) const {
    const auto found = FFlashes.constFind(KeyOf(record, attribute));
    return found == FFlashes.constEnd() ? nullptr : &*found;
}

Double TCellFlashes::Strength(const TFlash& flash) const {
    const Int64 steps = (FClock.elapsed() - flash.Start) / StepLength;
    constexpr Int64 allSteps = Duration / StepLength;
    return steps >= allSteps
               ? 0.0
               : static_cast<Double>(allSteps - steps) / static_cast<Double>(allSteps);
}

bool TCellFlashes::Fade() {
    if (FFlashes.isEmpty()) return false;
    const Int64 now = FClock.elapsed();
    const bool isNextStep = std::exchange(FStep, now / StepLength) != now / StepLength;
    const auto gone = FFlashes.removeIf(
        [now](const auto& flash) { return now - flash.value().Start >= Duration; });
    return gone > 0 || isNextStep;
}

} // namespace quorin
