// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

// A library with a plug-in's name and no entry point.

int hollow = 0;
