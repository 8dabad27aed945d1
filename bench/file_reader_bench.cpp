// Numeric extraction speed of the data-file reader on a large generated text file.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <unistd.h>

#include "util/file_reader.h"

// ~32 MB of runway-like lines: integers and floats of the sizes the airport file holds.
static const std::string& number_file() {
    static std::string path;
    if (!path.empty()) return path;
    char tmpl[] = "/tmp/vocalog-bench-XXXXXX";
    int fd = mkstemp(tmpl);
    FILE* f = fdopen(fd, "w");
    fputs("I\n600 numbers\n", f);
    unsigned x = 12345;
    for (int i = 0; i < 600000; ++i) {
        x = x * 1103515245u + 12345u;
        fprintf(f, "10 %.6f %.6f %d %.2f %u.0 %d 0 %u\n", (x % 180000) / 1000.0 - 90.0,
                (x % 360000) / 1000.0 - 180.0, (int)(x % 36), (x % 36000) / 100.0, x % 12000, (int)(x % 500),
                x % 150);
    }
    fputs("99\n", f);
    fclose(f);
    path = tmpl;
    atexit([] { remove(path.c_str()); });  // 32 MB: not left behind
    return path;
}

static void BM_ReadNumbers(benchmark::State& state) {
    const std::string& file = number_file();
    int64_t bytes = 0;
    for (auto _ : state) {
        char path[500];
        strcpy(path, file.c_str());
        fio_reset();
        if (!fio_open(path, FILE_TYPE_TEXT, 600, 1)) state.SkipWithError("open failed");
        int64_t count = 0;
        double sum = 0;
        for (;;) {
            int32_t code = fio_read_int("code");
            if (code == 99) break;
            sum += fio_read_flt("lat");
            sum += fio_read_flt("lon");
            count += fio_read_int("n");
            sum += fio_read_flt("hdg");
            sum += fio_read_flt("len");
            count += fio_read_int("w");
            count += fio_read_int("o");
            count += fio_read_int("c");
        }
        fio_close();
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(count);
        FILE* f = fopen(file.c_str(), "rb");
        fseek(f, 0, SEEK_END);
        bytes += ftell(f);
        fclose(f);
    }
    state.SetBytesProcessed(bytes);
}
BENCHMARK(BM_ReadNumbers)->Unit(benchmark::kMillisecond);
