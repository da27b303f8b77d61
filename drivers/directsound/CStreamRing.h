// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include "core/counted_ptr.h"
#include "drivers/directsound/CBufferLock.h"

#include <sonimbra/IAudioStream.h>

#include <cstdint>
#include <utility>

namespace sn_internal {

/// Keeps a looping buffer of one second filled from a stream while it plays, and knows when the
/// stream has been played to its end. Positions are in frames.
class CStreamRing {
public:
    /// Grabs the stream.
    explicit CStreamRing(sonimbra::IAudioStream* stream);

    /// The stream's format with the ring's length as FrameCount.
    const sonimbra::SAudioStreamFormat& getFormat() const { return Format; }

    /// Has only the first channel of each frame written.
    void setDownmixed(bool downmixed) { IsDownmixed = downmixed; }

    /// Fills the whole ring the first time and after a seek; otherwise, unless paused, writes as
    /// much as was played since the last time. Returns false when the sound has ended.
    bool refill(IDirectSoundBuffer& buffer, bool looped, bool paused);

    /// Positions the stream, limited to its length, and fills the ring from there. Returns false
    /// when the length is unknown or the stream or the buffer refuses.
    bool seek(IDirectSoundBuffer& buffer, std::uint32_t milliseconds, bool looped);

    std::uint32_t getPlayPosition() const; ///< milliseconds

    /// Fills the ring anew after its memory was lost and restored: from the frame that was played
    /// last, or where the stream cannot be positioned with silence.
    void recover(IDirectSoundBuffer& buffer, bool looped);

    /// Whether the memory was lost and restored since the last time: the buffer stands still then.
    bool takeRecovery() { return std::exchange(HasRecovered, false); }

    /// Lets the stream go; nothing but the destructor may be called afterwards.
    void dropStream() { Stream.reset(); }

private:
    static constexpr std::int32_t Unfilled = -1;
    static constexpr std::int32_t UnknownLength = -1;

    /// What one refill is about.
    struct STask {
        bool isFirst;
        bool isLooped;
        bool isSilent;     ///< nothing is left to read
        bool wasAllPlayed; ///< before this refill
        std::uint32_t playFrame;
        std::int32_t writeStart;
        std::int32_t frameCount;    ///< to write
        std::int32_t readFrames;    ///< that the stream delivered
        std::int32_t restartFrames; ///< of them, behind a rewind; 0 when there was none
    };

    enum class E_STEP { GoOn, Done, Ended };

    bool isLengthKnown() const { return StreamLength != UnknownLength; }
    std::uint32_t getBytesPerFrame() const;
    int getSilence() const;

    E_STEP countPlayed(STask& task);
    E_STEP judgeEnd(STask& task);
    static void keepAwayFromCursor(STask& task);
    bool write(IDirectSoundBuffer& buffer, STask& task);
    bool learnEnd(const STask& task);
    bool seekToFrame(IDirectSoundBuffer& buffer, std::int32_t frame, bool looped);
    void silence(IDirectSoundBuffer& buffer) const;

    std::int32_t fillRegion(const CBufferLock::SRegion& region, std::int32_t frameCount,
                            STask& task);
    std::int32_t readStream(unsigned char* target, std::int32_t frameCount);
    std::int32_t readPiece(void* target, std::int32_t frameCount);
    bool rewind();

    counted_ptr<sonimbra::IAudioStream> Stream;
    sonimbra::SAudioStreamFormat Format;
    bool IsDownmixed = false;
    bool HasEnded = false;
    bool HasRecovered = false;
    bool IsWrapped = false; ///< a looped stream was rewound inside the last refill
    std::int32_t RingLength;
    std::int32_t WritePosition = Unfilled;
    std::uint32_t LastPlayFrame = 0;
    std::int32_t FramesPlayed = 0;  ///< since the start or the last seek
    std::int32_t FramesWritten = 0; ///< since the start or the last seek
    std::int32_t StreamLength;
};

} // namespace sn_internal
