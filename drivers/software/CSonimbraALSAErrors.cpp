// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "drivers/software/CSonimbraALSAErrors.h"

// The header declares the function that is used here outside its own C part.
extern "C" {
#include <alsa/error.h>
}

namespace sn_internal {
namespace {

void ignore(const char*, int, const char*, int, const char*, va_list) {
}

} // namespace

CSonimbraALSAErrors::CSonimbraALSAErrors() : Previous(snd_lib_error_set_local(ignore)) {
}

CSonimbraALSAErrors::~CSonimbraALSAErrors() {
    snd_lib_error_set_local(Previous);
}

} // namespace sn_internal
