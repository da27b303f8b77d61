// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

/// For authors of plug-ins, in the one source file that holds the entry point. Everything else that
/// a plug-in needs is in <sonimbra/sonimbra.h>; it need not be linked with the library.

#include <sonimbra/ISoundEngine.h>
#include <sonimbra/export.h>

/// Defines and exports the entry point of a plug-in:
///
///     SONIMBRA_PLUGIN_INIT(engine, version) {
///         MyLoader* loader = new MyLoader;
///         engine->registerAudioStreamLoader(loader);
///         loader->drop();
///     }
///
///   engine   sonimbra::ISoundEngine*; belongs to its creator, do not keep it. When engines load
///            plug-ins as they are created, it has no output yet: registering works, play2D and
///            play3D return null.
///   version  const char*, the library's own version, for example "1.5.0"; valid during the call
///
/// Called each time an engine loads the plug-in, on the thread that creates the engine or is inside
/// ISoundEngine::loadPlugins, with the folder that is searched as the working folder: the plug-in's
/// own, unless Windows found a library of the same name beside the program first. An exception that
/// leaves the block ends it and goes no further. The plug-in is never unloaded.
#define SONIMBRA_PLUGIN_INIT(engine, version)                                                      \
    static void sonimbraInitializePlugin(sonimbra::ISoundEngine*, const char*);                    \
    SONIMBRA_PLUGIN_EXPORT void SONIMBRA_PLUGIN_CALL sonimbraPluginInit(                           \
        sonimbra::ISoundEngine* pluginEngine, const char* libraryVersion) {                        \
        try {                                                                                      \
            sonimbraInitializePlugin(pluginEngine, libraryVersion);                                \
        } catch (...) { /* it must not cross into another compiler's code */                       \
        }                                                                                          \
    }                                                                                              \
    static void sonimbraInitializePlugin([[maybe_unused]] sonimbra::ISoundEngine* engine,          \
                                         [[maybe_unused]] const char* version)
