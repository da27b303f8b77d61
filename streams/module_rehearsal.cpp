// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/module_rehearsal.h"

#include <algorithm>
#include <cstdint>

namespace sn_internal {
namespace {

constexpr double UnitsPerSecond = 65536.0;
constexpr double LongestTime = 60 * 60 * UnitsPerSecond;

/// In units of some 50 nanoseconds.
constexpr double MostWork = 1 << 25;

/// DUMB counts a voice's way through loops in 31 bits.
constexpr double LongestWay = 1 << 30;

/// One tick lasts this many units divided by the tempo.
constexpr std::int64_t TickUnits = 65536 * 60 / 24;

/// Source frames a second. What plays at 44100 frames a second stays below 2^31 then.
constexpr double HighestRate = 1e9;

/// Without linear slides a voice can become ever slower, a little in each tick.
constexpr double LowestRate = 16.0;

/// DUMB leaves a loop by its length, as often as it takes.
constexpr double HighestRateForLoopOfOne = 1 << 24;

class CRehearsal {
public:
    CRehearsal(DUH* module, const SModuleTraits& traits)
        : Traits(traits),
          ChannelCount(static_cast<int>(traits.channelCount)),
          // Without linear slides pitches rise without a limit of their own, to just below one that
          // fits at an eighth of the step.
          Step(traits.hasLinearSlides ? FixedOne : FixedOne / 8),
          Renderer(duh_start_sigrenderer(module, 0, 2, 0)),
          Player(duh_get_it_sigrenderer(Renderer)) {
        dumb_it_set_loop_callback(Player, dumb_it_callback_terminate, nullptr);
        dumb_it_set_xm_speed_zero_callback(Player, dumb_it_callback_terminate, nullptr);
    }
    CRehearsal(const CRehearsal&) = delete;
    CRehearsal& operator=(const CRehearsal&) = delete;
    ~CRehearsal() { duh_end_sigrenderer(Renderer); }

    SRehearsal run() {
        SRehearsal result;
        bool goesOn = Renderer != nullptr && dumb_it_sr_get_speed(Player) != 0;
        while (goesOn && result.isSafe && result.ends) {
            beginTick();
            result.isSafe = watchVoices();
            goesOn = result.isSafe && playTick();
            result.ends = Time < LongestTime && Work < MostWork && Way < LongestWay;
        }
        result.length = static_cast<long>(Time);
        return result;
    }

private:
    /// Steps and times of DUMB have 16 fractional bits; this follows them exactly.
    static constexpr std::int64_t FixedOne = 65536;

    void beginTick() {
        const std::int64_t tick = TickUnits * FixedOne / std::max(1, dumb_it_sr_get_tempo(Player));
        Remaining += tick;
        Units = static_cast<double>(tick) / FixedOne;
    }

    /// Plays to the first frame of the next tick, which shows its voices, and not a tick further.
    bool playTick() {
        const std::int64_t before = Remaining / Step;
        const auto frames = static_cast<long>(before + 1);
        const long played = duh_sigrenderer_generate_samples(
            Renderer, 0.0f, static_cast<float>(Step) / FixedOne, frames, nullptr);
        Remaining -= frames * Step;
        Time += static_cast<double>(played) * static_cast<double>(Step) / FixedOne;
        return played == frames;
    }

    /// Looks at what sounds in the current tick; false when it must not go on.
    bool watchVoices() {
        double fastest = 0;
        Work += 16;
        for (int i = 0; i < ChannelCount; ++i) {
            DUMB_IT_CHANNEL_STATE state;
            dumb_it_sr_get_channel_state(Player, i, &state);
            if (state.sample != 0) {
                if (!watchVoice(state.freq, loopOf(state.sample))) {
                    return false;
                }
                fastest = std::max(fastest, static_cast<double>(state.freq));
            }
        }
        Way += fastest * Units / UnitsPerSecond;
        return true;
    }

    bool watchVoice(double rate, std::uint32_t loop) {
        Work += 1;
        if (loop != 0) {
            Work += rate / UnitsPerSecond * Units / loop / 8;
        }
        return rate >= (Traits.hasLinearSlides ? 1.0 : LowestRate) && rate <= HighestRate &&
               (loop == 0 || rate <= loop * HighestRateForLoopOfOne);
    }

    /// Samples count from 1.
    std::uint32_t loopOf(int sample) const {
        const auto index = static_cast<std::size_t>(sample - 1);
        return index < Traits.loops.size() ? Traits.loops[index] : 0;
    }

    const SModuleTraits& Traits;
    const int ChannelCount;
    const std::int64_t Step;
    DUH_SIGRENDERER* const Renderer;
    DUMB_IT_SIGRENDERER* const Player;
    std::int64_t Remaining = 0; ///< of the current tick
    double Units = 0;           ///< of the current tick, whole
    double Time = 0;
    double Way = 0;
    double Work = 0;
};

} // namespace

SRehearsal rehearse(DUH* module, const SModuleTraits& traits) {
    return CRehearsal(module, traits).run();
}

} // namespace sn_internal
