// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include <windows.h>

#include <mmsystem.h>

namespace sn_test {

/// While it lives it stands in for the system's wave-out device: it plays when a test says so,
/// fails where a test wants it to, and writes down what it is told: "open", "prepare 0", "write 0",
/// ..., where the number is the header's.
class CScriptedWaveOut {
public:
    CScriptedWaveOut();
    ~CScriptedWaveOut();
    CScriptedWaveOut(const CScriptedWaveOut&) = delete;
    CScriptedWaveOut& operator=(const CScriptedWaveOut&) = delete;

    /// From now on a call answers with this code, and changes nothing.
    void fail(const std::string& call, MMRESULT code);

    /// The device has played all that was written, or one header of it.
    void playAll();
    void play(int header);

    /// Takes the calls since the last time, and the lines of others.
    std::vector<std::string> takeJournal();
    void note(const std::string& line);

    WAVEFORMATEX format = {};
    std::vector<std::int16_t> played; ///< what was written, in the order of writing

    /// What no caller may do, such as touching a header that is queued.
    std::vector<std::string> mistakes;

private:
    struct SCalls;

    MMRESULT answer(const std::string& call);
    MMRESULT answer(const char* what, HWAVEOUT device, const WAVEHDR* header, UINT size);
    void expect(bool condition, const char* mistake);
    void finish(int header);

    std::mutex Mutex;
    std::map<std::string, MMRESULT> Failures;
    std::vector<std::string> Journal;
    std::map<int, WAVEHDR*> Queued;
    const char* FirstSlice = nullptr;
    int Number = 0; ///< of the header that was named last
};

} // namespace sn_test
