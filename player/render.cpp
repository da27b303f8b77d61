// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "player/render.h"

#include <algorithm>
#include <cmath>

#include "player/batch.h"
#include "player/exit_codes.h"
#include "player/level_meter.h"
#include "player/progress.h"
#include "player/terminal.h"
#include "player/text.h"
#include "player/wav_writer.h"

namespace player {
namespace {

constexpr double MIX_RATE = 44100.0;
/// The engine's own buffer: a sound's end is noticed after at most so many frames.
constexpr std::uint32_t BLOCK_FRAMES = 256;

class Renderer {
public:
    Renderer(sonimbra::IOfflineSoundEngine& engine, const Options& options)
        : Engine(engine), Settings(options), Lines(options, "Rendering") {}

    int run() {
        Engine.setListenerPosition({0, 0, 0}, {0, 0, 1});
        int result = AllPlayed;
        for (const auto& files : groups(Settings)) {
            if (stopped()) {
                break;
            }
            Batch batch(Engine, Settings, files);
            result = batch.hasFailures() ? FileNotPlayable : result;
            if (!batch.files().empty() && !renderAfterGap(batch)) {
                break;
            }
        }
        return finish(result);
    }

private:
    /// The output file is created when the first sound is there: a mistyped input name must not
    /// cost an existing file.
    bool renderAfterGap(Batch& batch) {
        const bool ready = Output.isOpen() ? writeGap() : Output.open(Settings.renderTo);
        if (!ready || stopped()) {
            return false;
        }
        RenderedFiles += batch.files().size();
        return render(batch);
    }

    bool render(Batch& batch) {
        Lines.begin(batch);
        batch.start();
        const std::uint32_t begin = Output.frameCount();
        bool written = true;
        while (written && !stopped() && !batch.isFinished()) {
            batch.moveTo((Output.frameCount() - begin) / MIX_RATE);
            written = renderBlock(batch);
        }
        Lines.end(batch, !batch.isFinished());
        return written;
    }

    bool renderBlock(Batch& batch) {
        std::int16_t samples[2 * BLOCK_FRAMES];
        const std::uint32_t frames = std::min(BLOCK_FRAMES, framesLeft());
        Engine.renderFrames(samples, static_cast<std::int32_t>(frames));
        const std::int32_t peak = peakOf(samples, std::size_t{2} * frames);
        Peak = std::max(Peak, peak);
        Lines.update(batch, peak);
        return Output.write(samples, frames);
    }

    bool writeGap() {
        const auto gap = static_cast<std::uint32_t>(Settings.gapMilliseconds * MIX_RATE / 1000.0);
        return Output.writeSilence(std::min(gap, framesLeft()));
    }

    std::uint32_t framesLeft() const {
        const double limit = Settings.seconds ? std::round(*Settings.seconds * MIX_RATE) : 1e300;
        const double left = limit - Output.frameCount();
        return left < 4e9 ? static_cast<std::uint32_t>(std::max(0.0, left)) : 4000000000u;
    }

    bool stopped() const { return terminal::stopRequested() || framesLeft() == 0; }

    int finish(int result) {
        const bool nothing = !Output.isOpen() && Output.errorText().empty();
        if (nothing) {
            return result;
        }
        if (!Output.finish()) {
            printError("cannot write " + printable(Settings.renderTo) + ": " + Output.errorText());
            return OutputNotWritable;
        }
        if (!Settings.quiet) {
            printSummary();
        }
        return result;
    }

    void printSummary() const {
        printLine("Rendered " + fileCountText(RenderedFiles) + ", " +
                  decimal(Output.frameCount() / MIX_RATE, 3) + " s, peak " +
                  decimal(Peak * 100.0 / 32768.0, 1) + " % to " + printable(Settings.renderTo));
    }

    sonimbra::IOfflineSoundEngine& Engine;
    const Options& Settings;
    Progress Lines;
    WavWriter Output;
    std::size_t RenderedFiles = 0;
    std::int32_t Peak = 0;
};

} // namespace

int renderFiles(const Options& options) {
    const Counted<sonimbra::IOfflineSoundEngine> engine(
        sonimbra::createSonimbraOfflineDevice(engineOptions(options)));
    if (!engine) {
        printError("the library cannot make its rendering engine; is there enough memory?");
        return NoDriver;
    }
    return Renderer(*engine, options).run();
}

} // namespace player
