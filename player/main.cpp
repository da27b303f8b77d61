// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include <exception>

#include "player/devices.h"
#include "player/exit_codes.h"
#include "player/options.h"
#include "player/realtime.h"
#include "player/record.h"
#include "player/render.h"
#include "player/terminal.h"
#include "player/text.h"

int main(int argc, char** argv) {
    try {
        player::terminal::prepare();
        const player::CommandLine commandLine =
            player::parseCommandLine(player::terminal::arguments(argc, argv));
        if (!commandLine.options) {
            return commandLine.exitCode;
        }
        const player::Options& options = *commandLine.options;
        if (options.listDevices) {
            return player::listDevices(options);
        }
        if (!options.recordTo.empty()) {
            return player::recordFile(options);
        }
        return options.renderTo.empty() ? player::playFiles(options) : player::renderFiles(options);
    } catch (const std::exception& error) {
        player::printError(error.what());
        return player::UsageError;
    }
}
