// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#include "tests/support/ogg.h"

#include <vorbis/vorbisenc.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace sn_test {
namespace {

struct SEncoder {
    vorbis_info info;
    vorbis_comment comment;
    vorbis_dsp_state state;
    vorbis_block block;
    ogg_stream_state stream;
    Bytes file;

    void write(ogg_packet& packet) {
        ogg_page page;
        ogg_stream_packetin(&stream, &packet);
        while (ogg_stream_flush(&stream, &page) != 0) {
            file.insert(file.end(), page.header, page.header + page.header_len);
            file.insert(file.end(), page.body, page.body + page.body_len);
        }
    }

    /// No frames end the stream.
    void encode(std::int32_t frameCount) {
        vorbis_analysis_wrote(&state, frameCount);
        ogg_packet packet;
        while (vorbis_analysis_blockout(&state, &block) == 1) {
            vorbis_analysis(&block, nullptr);
            vorbis_bitrate_addblock(&block);
            while (vorbis_bitrate_flushpacket(&state, &packet) == 1) {
                write(packet);
            }
        }
    }
};

constexpr std::size_t HeaderSize = 27;

/// Gives the page at data its checksum; a page that reaches beyond the end stays as it is.
void mend(std::uint8_t* data, std::size_t size) {
    if (size < HeaderSize || size < HeaderSize + data[HeaderSize - 1]) {
        return;
    }
    std::uint8_t* const body = data + HeaderSize + data[HeaderSize - 1];
    std::size_t bodySize = 0;
    std::for_each(data + HeaderSize, body, [&](std::uint8_t lacing) { bodySize += lacing; });
    if (static_cast<std::size_t>(data + size - body) >= bodySize) {
        ogg_page page = {data, static_cast<long>(body - data), body, static_cast<long>(bodySize)};
        ogg_page_checksum_set(&page);
    }
}

} // namespace

Bytes oggFile(const SOggSignal& signal) {
    SEncoder encoder{};
    vorbis_info_init(&encoder.info);
    vorbis_encode_init_vbr(&encoder.info, signal.channels, signal.rate, 0.1f);
    vorbis_comment_init(&encoder.comment);
    vorbis_analysis_init(&encoder.state, &encoder.info);
    vorbis_block_init(&encoder.state, &encoder.block);
    ogg_stream_init(&encoder.stream, signal.serial);
    ogg_packet headers[3];
    vorbis_analysis_headerout(&encoder.state, &encoder.comment, headers, headers + 1, headers + 2);
    std::for_each(headers, headers + 3, [&](ogg_packet& header) { encoder.write(header); });
    std::minstd_rand random;
    for (std::int32_t first = 0, count = 1; count != 0; first += count) {
        count = std::min(1024, signal.frames - first);
        float** const target = vorbis_analysis_buffer(&encoder.state, count);
        for (std::int32_t i = 0; i < count * signal.channels; ++i) {
            const std::int32_t channel = i / count, frame = i % count;
            const double tone = std::sin(0.05 * (channel + 1) * (first + frame));
            const double noise = 2.0 * static_cast<double>(random()) / random.max() - 1.0;
            target[channel][frame] = static_cast<float>(0.5 * tone + signal.noise * noise);
        }
        encoder.encode(count);
    }
    ogg_stream_clear(&encoder.stream);
    vorbis_block_clear(&encoder.block);
    vorbis_dsp_clear(&encoder.state);
    vorbis_comment_clear(&encoder.comment);
    vorbis_info_clear(&encoder.info);
    return encoder.file;
}

void mendChecksums(std::uint8_t* file, std::size_t size) {
    static constexpr std::uint8_t capture[] = {'O', 'g', 'g', 'S'};
    std::uint8_t* const end = file + size;
    for (auto* at = std::search(file, end, capture, capture + 4); at != end;
         at = std::search(at + 4, end, capture, capture + 4)) {
        mend(at, static_cast<std::size_t>(end - at));
    }
}

} // namespace sn_test
