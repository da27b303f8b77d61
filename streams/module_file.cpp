// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "streams/module_file.h"

#include "io/CBufferedReader.h"
#include "streams/dumb_tables.h"
#include "streams/module_rehearsal.h"

#include <mutex>

namespace sn_internal {
namespace {

io::CBufferedReader& readerBehind(void* file) {
    return *static_cast<io::CBufferedReader*>(file);
}

/// Only for the sake of the record: files are handed over open.
void* openFile(const char*) {
    return nullptr;
}

int skipBytes(void* file, long byteCount) {
    return readerBehind(file).skip(byteCount) ? 0 : -1;
}

int readByte(void* file) {
    return readerBehind(file).readByte();
}

long readBytes(char* target, long byteCount, void* file) {
    const auto most = static_cast<std::int32_t>(byteCount < INT32_MAX ? byteCount : INT32_MAX);
    return readerBehind(file).read(target, most);
}

void closeFile(void*) {
}

/// The readers that do not measure the length: that comes after the rehearsal.
DUH* readKind(DUMBFILE* file, E_MODULE_KIND kind) {
    static constexpr DUH* (*readers[])(DUMBFILE*) = {dumb_read_mod_quick, dumb_read_xm_quick,
                                                     dumb_read_s3m_quick, dumb_read_it_quick};
    return readers[static_cast<int>(kind)](file);
}

std::unique_ptr<DUH, SModuleDeleter> readUnchecked(sonimbra::IFileReader& file,
                                                   E_MODULE_KIND kind) {
    static DUMBFILE_SYSTEM callbacks = {openFile, skipBytes, readByte, readBytes, closeFile};
    io::CBufferedReader reader(file);
    DUMBFILE* source = dumbfile_open_ex(&reader, &callbacks);
    if (source == nullptr) {
        return nullptr;
    }
    std::unique_ptr<DUH, SModuleDeleter> module(readKind(source, kind));
    dumbfile_close(source);
    return module;
}

/// Where the module repeats in itself, DUMB would measure for ever.
void measure(SModule& module, const SRehearsal& rehearsal) {
    module.ends = rehearsal.ends;
    if (rehearsal.ends) {
        dumb_it_do_initial_runthrough(module.duh.get());
    } else {
        duh_set_length(module.duh.get(), rehearsal.length);
    }
    module.length = duh_get_length(module.duh.get());
}

SModule readAs(sonimbra::IFileReader& file, E_MODULE_KIND kind) {
    SModule module;
    SModuleTraits traits;
    if (!mayBeRead(file, kind, traits)) {
        return module;
    }
    module.duh = readUnchecked(file, kind);
    if (!module.duh) {
        return module;
    }
    const SRehearsal rehearsal = rehearse(module.duh.get(), traits);
    if (rehearsal.isSafe) {
        measure(module, rehearsal);
    } else {
        module.duh.reset();
    }
    return module;
}

/// Lets one reading go on at a time, and none inside another.
class CTurn {
public:
    CTurn() : Lock(Mutex), IsFirst(!IsTaken) { IsTaken = true; }
    CTurn(const CTurn&) = delete;
    CTurn& operator=(const CTurn&) = delete;
    ~CTurn() { IsTaken = !IsFirst; }

    bool isFirst() const { return IsFirst; }

private:
    static inline std::recursive_mutex Mutex;
    static inline bool IsTaken = false; // guarded by the mutex

    std::scoped_lock<std::recursive_mutex> Lock;
    const bool IsFirst;
};

} // namespace

SModule readModule(sonimbra::IFileReader& file) {
    const CTurn turn;
    if (!turn.isFirst()) {
        return {};
    }
    fillDumbTables();
    for (const E_MODULE_KIND kind :
         {E_MODULE_KIND::MOD, E_MODULE_KIND::XM, E_MODULE_KIND::S3M, E_MODULE_KIND::IT}) {
        if (SModule module = readAs(file, kind); module.duh) {
            return module;
        }
    }
    return {};
}

} // namespace sn_internal
