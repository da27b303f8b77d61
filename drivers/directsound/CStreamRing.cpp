// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/directsound/CStreamRing.h"

#include "core/integers.h"
#include "core/log.h"
#include "core/no_throw.h"
#include "drivers/directsound/first_channel.h"

#include <algorithm>
#include <cstring>

namespace sn_internal {
namespace {

/// Frames around the play cursor that are not written.
constexpr std::int32_t GuardFrames = 256;

constexpr std::int32_t PieceSize = 8192;

} // namespace

CStreamRing::CStreamRing(sonimbra::IAudioStream* stream)
    : Stream(counted_ptr<sonimbra::IAudioStream>::share(stream)),
      Format(stream->getFormat()),
      RingLength(Format.SampleRate),
      StreamLength(Format.FrameCount < 1 ? UnknownLength : Format.FrameCount) {
    Format.FrameCount = RingLength;
}

std::uint32_t CStreamRing::getBytesPerFrame() const {
    return static_cast<std::uint32_t>(IsDownmixed ? Format.getSampleSize() : Format.getFrameSize());
}

int CStreamRing::getSilence() const {
    return Format.SampleFormat == sonimbra::E_SAMPLE_FORMAT::Unsigned8Bit ? 0x80 : 0;
}

void CStreamRing::silence(IDirectSoundBuffer& buffer) const {
    const CBufferLock memory(buffer, 0, static_cast<DWORD>(RingLength) * getBytesPerFrame());
    if (memory.isLocked() && memory.getRegion(0).bytes != nullptr) {
        std::memset(memory.getRegion(0).bytes, getSilence(), memory.getRegion(0).size);
    }
}

bool CStreamRing::refill(IDirectSoundBuffer& buffer, bool looped, bool paused) {
    if (HasEnded) {
        return false;
    }
    STask task = {};
    task.isFirst = WritePosition == Unfilled;
    task.isLooped = looped;
    if (task.isFirst) {
        WritePosition = 0;
    } else if (paused) {
        return true;
    }
    DWORD cursor = 0;
    if (FAILED(buffer.GetCurrentPosition(&cursor, nullptr))) {
        logText("Failed getting position of stream");
        return true;
    }
    // Frames are compared with bytes here: it takes effect at the start of the ring, and a
    // cursor that stands still elsewhere is found when the frames are counted.
    if (getBytesPerFrame() == 0 || RingLength < 1 || (!task.isFirst && LastPlayFrame == cursor)) {
        return true;
    }
    task.playFrame = cursor / getBytesPerFrame();
    task.frameCount = RingLength;
    for (const auto step : {&CStreamRing::countPlayed, &CStreamRing::judgeEnd}) {
        if (const E_STEP result = (this->*step)(task); result != E_STEP::GoOn) {
            return result == E_STEP::Done;
        }
    }
    keepAwayFromCursor(task);
    if (task.frameCount < 1) {
        LastPlayFrame = task.playFrame;
        return true;
    }
    return write(buffer, task);
}

CStreamRing::E_STEP CStreamRing::countPlayed(STask& task) {
    if (task.isFirst) {
        return E_STEP::GoOn;
    }
    const auto ring = static_cast<std::uint32_t>(RingLength);
    const std::uint32_t advanced = task.playFrame > LastPlayFrame
                                       ? task.playFrame - LastPlayFrame
                                       : ring - LastPlayFrame + task.playFrame;
    task.frameCount = wrap32(advanced);
    task.writeStart = WritePosition % RingLength;
    FramesPlayed = wrappingSum(FramesPlayed, task.frameCount);
    if (isLengthKnown() && FramesPlayed > StreamLength && FramesWritten < FramesPlayed) {
        if (!task.isLooped) {
            return E_STEP::Ended;
        }
        if (IsWrapped) {
            IsWrapped = false;
            FramesPlayed = wrap32(std::int64_t(FramesPlayed) - StreamLength);
        }
    }
    return advanced == ring ? E_STEP::Done : E_STEP::GoOn;
}

CStreamRing::E_STEP CStreamRing::judgeEnd(STask& task) {
    const bool isAllWritten = isLengthKnown() && FramesWritten >= StreamLength;
    task.wasAllPlayed = isLengthKnown() && FramesPlayed >= StreamLength;
    if (!isAllWritten || task.isLooped) {
        return E_STEP::GoOn;
    }
    if (task.wasAllPlayed) {
        return E_STEP::Ended;
    }
    task.isSilent = true;
    LastPlayFrame = task.playFrame;
    return E_STEP::GoOn;
}

void CStreamRing::keepAwayFromCursor(STask& task) {
    const std::int64_t ahead = std::int64_t(task.writeStart) - task.playFrame;
    if (ahead > 0 && ahead < GuardFrames) {
        task.writeStart += GuardFrames;
        task.frameCount = wrappingSum(task.frameCount, -GuardFrames);
    } else if (ahead <= 0 && -ahead <= GuardFrames && !task.isFirst) {
        task.frameCount = 0;
    }
}

/// Returns false when the sound has ended.
bool CStreamRing::write(IDirectSoundBuffer& buffer, STask& task) {
    const std::uint32_t frameSize = getBytesPerFrame();
    CBufferLock memory(buffer, static_cast<DWORD>(task.writeStart) * frameSize,
                       static_cast<DWORD>(task.frameCount) * frameSize);
    WritePosition = wrappingSum(task.writeStart, task.frameCount);
    LastPlayFrame = task.playFrame;
    if (memory.isLost() && !HasRecovered && SUCCEEDED(buffer.Restore())) {
        recover(buffer, task.isLooped);
        return true;
    }
    if (!memory.isLocked()) {
        logText("Could not lock buffer for stream update");
        return true;
    }
    std::int32_t remaining = task.frameCount;
    for (const int i : {0, 1}) {
        remaining -= fillRegion(memory.getRegion(i), remaining, task);
    }
    const bool isGivenBack = memory.unlock();
    if (task.restartFrames != 0) {
        FramesWritten = task.restartFrames;
        IsWrapped = true;
    } else {
        FramesWritten = wrappingSum(FramesWritten, task.readFrames);
    }
    if (!isGivenBack) {
        logText("Could not unlock buffer for stream update");
        return true;
    }
    return memory.getRegion(0).size == 0 || task.readFrames != 0 || learnEnd(task);
}

/// The stream delivered nothing. Returns false when the sound has ended.
bool CStreamRing::learnEnd(const STask& task) {
    if (!task.isLooped) {
        return !task.wasAllPlayed;
    }
    StreamLength = FramesWritten;
    if (task.wasAllPlayed && rewind()) {
        FramesPlayed = 0;
        FramesWritten = 0;
    }
    return true;
}

/// Fills as much of the region as is wanted; what the stream does not deliver is silence. Returns
/// the frames filled.
std::int32_t CStreamRing::fillRegion(const CBufferLock::SRegion& region, std::int32_t frameCount,
                                     STask& task) {
    const std::uint32_t frameSize = getBytesPerFrame();
    const std::int32_t wanted =
        std::min(frameCount, static_cast<std::int32_t>(region.size / frameSize));
    if (region.bytes == nullptr || wanted < 1) {
        return 0;
    }
    std::int32_t read = task.isSilent ? 0 : readStream(region.bytes, wanted);
    if (read < wanted && task.isLooped && rewind()) {
        const std::int32_t behind =
            readStream(region.bytes + static_cast<std::uint32_t>(read) * frameSize, wanted - read);
        read += behind;
        if (read == wanted) {
            task.restartFrames = behind;
        }
    }
    std::memset(region.bytes + static_cast<std::uint32_t>(read) * frameSize, getSilence(),
                static_cast<std::uint32_t>(wanted - read) * frameSize);
    task.readFrames += read;
    return wanted;
}

std::int32_t CStreamRing::readStream(unsigned char* target, std::int32_t frameCount) {
    if (!IsDownmixed) {
        return readPiece(target, frameCount);
    }
    unsigned char frames[PieceSize];
    const std::int32_t pieceFrames = PieceSize / Format.getFrameSize();
    std::int32_t total = 0;
    while (total < frameCount && pieceFrames > 0) {
        const std::int32_t asked = std::min(frameCount - total, pieceFrames);
        const std::int32_t got = readPiece(frames, asked);
        copyFirstChannel(frames, static_cast<std::uint32_t>(got), Format,
                         target + static_cast<std::uint32_t>(total) * getBytesPerFrame());
        total += got;
        if (got < asked) {
            break;
        }
    }
    return total;
}

/// Trusts no decoder to keep to what it was asked.
std::int32_t CStreamRing::readPiece(void* target, std::int32_t frameCount) {
    const std::int32_t got =
        withoutExceptions(std::int32_t(0), [&] { return Stream->readFrames(target, frameCount); });
    return std::clamp(got, 0, frameCount);
}

bool CStreamRing::rewind() {
    return withoutExceptions(false, [this] { return Stream->setPosition(0); });
}

bool CStreamRing::seek(IDirectSoundBuffer& buffer, std::uint32_t milliseconds, bool looped) {
    if (Format.SampleRate == 0 || !isLengthKnown()) {
        return false;
    }
    const double wanted = milliseconds * static_cast<double>(Format.SampleRate) / 1000.0;
    const std::int32_t frame = std::min(truncatedToInt32(wanted), StreamLength);
    return seekToFrame(buffer, frame, looped);
}

bool CStreamRing::seekToFrame(IDirectSoundBuffer& buffer, std::int32_t frame, bool looped) {
    if (!withoutExceptions(false, [&] { return Stream->setPosition(frame); }) ||
        FAILED(buffer.SetCurrentPosition(0))) {
        return false;
    }
    WritePosition = Unfilled;
    LastPlayFrame = 0;
    FramesPlayed = 0;
    FramesWritten = 0;
    HasEnded = false; // from the new position it may go on
    HasEnded = !refill(buffer, looped, false);
    FramesPlayed = wrappingSum(FramesPlayed, frame);
    FramesWritten = wrappingSum(FramesWritten, frame);
    return true;
}

void CStreamRing::recover(IDirectSoundBuffer& buffer, bool looped) {
    HasRecovered = true;
    const std::int32_t frame = StreamLength > 0 ? FramesPlayed % StreamLength : FramesPlayed;
    if (!seekToFrame(buffer, frame, looped)) {
        silence(buffer);
    }
}

std::uint32_t CStreamRing::getPlayPosition() const {
    if (Format.SampleRate == 0) {
        return UINT32_MAX;
    }
    std::int32_t frames = FramesPlayed;
    if (StreamLength > 0 && frames > StreamLength) {
        frames %= StreamLength;
    }
    return truncatedToUint32(static_cast<float>(frames * 1000.0 / Format.SampleRate));
}

} // namespace sn_internal
