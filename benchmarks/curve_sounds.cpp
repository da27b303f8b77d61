// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// How the cost of a sound goes with the number of playing ones, beside mixing.

#include "benchmarks/crowd.h"

namespace benchmarks {
namespace {

class CEventCounter : public sonimbra::ISoundStopEventReceiver {
public:
    void OnSoundStopped(sonimbra::ISound*, sonimbra::E_STOP_EVENT_CAUSE, void*) override {
        ++Count;
    }

private:
    std::int64_t Count = 0;
};

void updateSounds2D(benchmark::State& state) {
    const SCrowd crowd(state.range(0), false);
    for (auto _ : state) {
        crowd.engine->update();
    }
    reportItemCost(state, state.range(0));
}

/// The listener moves, so that volume and pan of every sound are computed anew.
void updateSounds3D(benchmark::State& state) {
    const SCrowd crowd(state.range(0), true);
    float x = 0.0f;
    for (auto _ : state) {
        crowd.engine->setListenerPosition(sonimbra::vec3df(x, 0, 0), sonimbra::vec3df(0, 0, 1));
        crowd.engine->update();
        x = 1.0f - x;
    }
    reportItemCost(state, state.range(0));
}

/// Starts all of them in a row: from cached samples, without touching a file. The memory has been
/// in use before: what the system takes for the first touch of its pages is not the library's cost.
void startSounds(benchmark::State& state) {
    SCrowd crowd(state.range(0), false);
    crowd.engine->stopAllSounds();
    crowd.engine->update();
    for (auto _ : state) {
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            crowd.start(false, 0);
        }
        state.PauseTiming();
        crowd.engine->stopAllSounds();
        crowd.engine->update();
        state.ResumeTiming();
    }
    reportItemCost(state, state.range(0));
}

/// A cycle finds all of them stopped: it reaps them and delivers an event for each.
void reapSounds(benchmark::State& state) {
    CEventCounter events;
    const SCrowd crowd(0, false);
    for (auto _ : state) {
        state.PauseTiming();
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            const TOwned<sonimbra::ISound> sound(
                crowd.engine->play2D(crowd.source, true, false, true));
            sound->setSoundStopEventReceiver(&events);
            sound->stop();
        }
        state.ResumeTiming();
        crowd.engine->update();
    }
    reportItemCost(state, state.range(0));
}

void curveOfSounds(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("n")->RangeMultiplier(10)->Range(1, 10000);
}

BENCHMARK(updateSounds2D)->Name("curve/sounds/update_2D")->Apply(curveOfSounds);
BENCHMARK(updateSounds3D)->Name("curve/sounds/update_3D")->Apply(curveOfSounds);
BENCHMARK(startSounds)->Name("curve/sounds/start")->Apply(curveOfSounds);
BENCHMARK(reapSounds)->Name("curve/sounds/reap")->Apply(curveOfSounds);

} // namespace
} // namespace benchmarks
