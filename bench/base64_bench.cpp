// Base64 both ways beside its peers: the raw calls beside the peer that writes into the caller's
// buffer, the string forms beside those that return a new string.

#include "qzbase64.hpp"

#include <QByteArray>
#include <absl/strings/escaping.h>
#include <openssl/evp.h>

#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#ifdef QZ_BENCH_GLIB
#include <glib.h>
#endif

namespace {

std::string random_bytes(std::size_t len)
{
    std::mt19937 generator(64);
    std::string bytes(len, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(generator());
    return bytes;
}

/// Bytes and their text, with room for what any of the raw calls writes.
struct Work {
    explicit Work(const benchmark::State &state)
        : data(random_bytes(static_cast<std::size_t>(state.range(0)))),
          text(modp::b64_encode(data.data(), data.size())), buffer(text.size() + 64),
          data_len(static_cast<int>(data.size())), text_len(static_cast<int>(text.size()))
    {}

    unsigned char *unsigned_buffer() { return reinterpret_cast<unsigned char *>(buffer.data()); }

    std::string data;
    std::string text;
    std::vector<char> buffer;
    int data_len;
    int text_len;
};

const unsigned char *as_unsigned(const std::string &text)
{
    return reinterpret_cast<const unsigned char *>(text.data());
}

/// Times @p call on the work; @p call returns what it made, so that nothing is optimised away.
template <typename Call> void measure(benchmark::State &state, Call call)
{
    Work work(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(call(work));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void encode_raw(benchmark::State &state)
{
    measure(state,
            [](Work &w) { return modp_b64_encode(w.buffer.data(), w.data.data(), w.data_len); });
}

void encode_openssl(benchmark::State &state)
{
    measure(state, [](Work &w) {
        return EVP_EncodeBlock(w.unsigned_buffer(), as_unsigned(w.data), w.data_len);
    });
}

void encode_string(benchmark::State &state)
{
    measure(state, [](const Work &w) { return modp::b64_encode(w.data); });
}

void encode_qt(benchmark::State &state)
{
    measure(state, [](const Work &w) {
        return QByteArray::fromRawData(w.data.data(), w.data_len).toBase64();
    });
}

void encode_abseil(benchmark::State &state)
{
    measure(state, [](const Work &w) { return absl::Base64Escape(w.data); });
}

void decode_raw(benchmark::State &state)
{
    measure(state,
            [](Work &w) { return modp_b64_decode(w.buffer.data(), w.text.data(), w.text_len); });
}

void decode_openssl(benchmark::State &state)
{
    measure(state, [](Work &w) {
        return EVP_DecodeBlock(w.unsigned_buffer(), as_unsigned(w.text), w.text_len);
    });
}

void decode_string(benchmark::State &state)
{
    measure(state, [](const Work &w) { return modp::b64_decode(w.text); });
}

void decode_qt(benchmark::State &state)
{
    measure(state, [](const Work &w) {
        return QByteArray::fromBase64(QByteArray::fromRawData(w.text.data(), w.text_len));
    });
}

void decode_abseil(benchmark::State &state)
{
    measure(state, [](const Work &w) {
        std::string out;
        absl::Base64Unescape(w.text, &out);
        return out;
    });
}

#ifdef QZ_BENCH_GLIB
void encode_glib(benchmark::State &state)
{
    measure(state, [](const Work &w) {
        gchar *out = g_base64_encode(as_unsigned(w.data), w.data.size());
        benchmark::DoNotOptimize(*out);
        g_free(out);
        return 0;
    });
}

void decode_glib(benchmark::State &state)
{
    measure(state, [](const Work &w) {
        gsize len = 0;
        guchar *out = g_base64_decode(w.text.c_str(), &len);
        benchmark::DoNotOptimize(*out);
        g_free(out);
        return len;
    });
}
#endif

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(64)->Arg(1 << 10)->Arg(1 << 20);
}

BENCHMARK(encode_raw)->Apply(sizes);
BENCHMARK(encode_openssl)->Apply(sizes);
BENCHMARK(encode_string)->Apply(sizes);
BENCHMARK(encode_qt)->Apply(sizes);
BENCHMARK(encode_abseil)->Apply(sizes);
#ifdef QZ_BENCH_GLIB
BENCHMARK(encode_glib)->Apply(sizes);
#endif
BENCHMARK(decode_raw)->Apply(sizes);
BENCHMARK(decode_openssl)->Apply(sizes);
BENCHMARK(decode_string)->Apply(sizes);
BENCHMARK(decode_qt)->Apply(sizes);
BENCHMARK(decode_abseil)->Apply(sizes);
#ifdef QZ_BENCH_GLIB
BENCHMARK(decode_glib)->Apply(sizes);
#endif

} // namespace
