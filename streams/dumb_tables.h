// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

namespace sn_internal {

/// Lets DUMB fill its interpolation tables. It does so at the first use and marks them as ready too
/// early for a second thread, so whoever resamples calls this before. Any thread, any number of
/// times.
void fillDumbTables();

} // namespace sn_internal
