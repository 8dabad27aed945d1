// A buffered input file with the states of a standard stream, parsing numbers in place.
#include "util/file_stream.h"

#include <cctype>
#include <cerrno>
#include <cmath>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "platform/platform.h"

void fs_open(FileStream* s, const char* path, bool text) {
    s->file = plat_open_regular(path);  // a FIFO, a device or a folder is a file that cannot be opened
    s->text = text;
    s->pos = s->len = 0;
    s->drained = false;
    s->state = s->file ? 0 : FS_FAIL;
    s->size = 0;
    if (!s->file) return;
    setvbuf(s->file, nullptr, _IONBF, 0);
    if (fseeko(s->file, 0, SEEK_END) == 0) s->size = ftello(s->file);
    if (fseeko(s->file, 0, SEEK_SET) != 0) s->state = FS_BAD;
}

void fs_close(FileStream* s) {
    if (!s->file) {
        s->state |= FS_FAIL;
        return;
    }
    if (fclose(s->file) != 0) s->state |= FS_FAIL;
    s->file = nullptr;
    s->pos = s->len = 0;
    s->drained = true;
}

// Makes at least `want` bytes visible from pos when the file still has them.
static void fill(FileStream* s, size_t want) {
    if (s->len - s->pos >= want || s->drained || !s->file) return;
    size_t keep = s->len - s->pos;
    memmove(s->block, s->block + s->pos, keep);
    s->pos = 0;
    s->len = keep;
    while (s->len < FS_BLOCK) {
        size_t got = fread(s->block + s->len, 1, FS_BLOCK - s->len, s->file);
        if (got == 0) {
            if (ferror(s->file)) s->state |= FS_BAD;
            s->drained = true;
            break;
        }
        s->len += got;
        if (s->len - s->pos >= want) break;
    }
    s->block[s->len] = 0;  // a sentinel that no number can take
}

// Next character with the text-mode line-end translation, or -1; does not touch state.
static int take(FileStream* s) {
    fill(s, 2);
    if (s->pos >= s->len) return -1;
    unsigned char c = s->block[s->pos++];
    if (c == '\r' && s->text && s->pos < s->len && s->block[s->pos] == '\n') {
        ++s->pos;
        return '\n';
    }
    return c;
}

int fs_get(FileStream* s) {
    if (s->state) {
        s->state |= FS_FAIL;
        return -1;
    }
    int c = take(s);
    if (c < 0) s->state |= FS_EOF | FS_FAIL;
    return c;
}

int fs_peek(FileStream* s) {
    if (s->state) return -1;
    fill(s, 2);
    if (s->pos >= s->len) {
        s->state |= FS_EOF;
        return -1;
    }
    unsigned char c = s->block[s->pos];
    if (c == '\r' && s->text && s->pos + 1 < s->len && s->block[s->pos + 1] == '\n') return '\n';
    return c;
}

size_t fs_read(FileStream* s, void* dst, size_t count) {
    if (s->state) {
        s->state |= FS_FAIL;
        return 0;
    }
    unsigned char* out = (unsigned char*)dst;
    size_t done = 0;
    if (s->text) {
        while (done < count) {
            int c = take(s);
            if (c < 0) break;
            out[done++] = (unsigned char)c;
        }
    } else {
        while (done < count) {
            fill(s, 1);
            size_t avail = s->len - s->pos;
            if (avail == 0) break;
            size_t n = count - done < avail ? count - done : avail;
            memcpy(out + done, s->block + s->pos, n);
            s->pos += n;
            done += n;
        }
    }
    if (done < count) s->state |= FS_EOF | FS_FAIL;
    return done;
}

static bool is_digit(unsigned char c) { return c >= '0' && c <= '9'; }

static bool is_space(int c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

// The sentry of a formatted read: fails on an unclean stream, else skips white space.
// Returns false (with FS_EOF | FS_FAIL) when the data ends first.
bool fs_skip_space(FileStream* s) {
    if (s->state) {
        s->state |= FS_FAIL;
        return false;
    }
    for (;;) {
        fill(s, FS_LOOKAHEAD);
        while (s->pos < s->len && is_space(s->block[s->pos])) ++s->pos;
        if (s->pos < s->len) return true;
        if (s->drained) {
            s->state |= FS_EOF | FS_FAIL;
            return false;
        }
    }
}

// The extent of a number starting at p. Grammar of an integer:
//   [+-] digit*                      (at least one digit, else the read fails)
// Grammar of a float (the exponent is looked at only after a mantissa digit):
//   [+-] digit* [. digit*] [(e|E) [+-] digit*]
// Characters are taken as long as they fit the grammar, even when the whole then fails
// (as "1e" does), exactly as a standard stream takes them. The block's zero sentinel
// stops the scan at the end of the buffered bytes.
static const unsigned char* number_end(const unsigned char* p, bool is_float) {
    if (*p == '+' || *p == '-') ++p;
    bool mantissa = false;
    while (is_digit(*p)) ++p, mantissa = true;
    if (!is_float) return p;
    if (*p == '.') {
        ++p;
        while (is_digit(*p)) ++p, mantissa = true;
    }
    if (mantissa && (*p == 'e' || *p == 'E')) {
        ++p;
        if (*p == '+' || *p == '-') ++p;
        while (is_digit(*p)) ++p;
    }
    return p;
}

// Finds the number at the read position and takes it. Normally it lies inside the
// buffered window and is used in place; a token that runs to the window's end (longer
// than the look-ahead) is gathered into `scratch` across refills instead.
static bool take_number(FileStream* s, bool is_float, char* scratch, size_t cap, const char** b,
                        const char** e) {
    const unsigned char* p = s->block + s->pos;
    const unsigned char* q = number_end(p, is_float);
    size_t stop = (size_t)(q - s->block);
    if (stop < s->len || s->drained) {
        s->pos = stop;
        if (stop >= s->len) s->state |= FS_EOF;
        *b = (const char*)p;
        *e = (const char*)q;
        return true;
    }
    // Rare: gather it piece by piece; the grammar restarts at the known prefix.
    size_t n = 0;
    bool overlong = false;
    for (;;) {
        while (s->pos < stop) {
            if (n + 1 < cap) scratch[n++] = (char)s->block[s->pos];
            else overlong = true;
            ++s->pos;
        }
        fill(s, FS_LOOKAHEAD);
        if (s->pos >= s->len) {
            s->state |= FS_EOF;
            break;
        }
        // Continue the scan where it stopped: digits of the part being read.
        const unsigned char* r = s->block + s->pos;
        const unsigned char* t = r;
        while (is_digit(*t) || (is_float && (*t == '.' || *t == 'e' || *t == 'E' || *t == '+' || *t == '-')))
            ++t;
        if (t == r) break;
        stop = (size_t)(t - s->block);
        if (stop < s->len) {
            while (s->pos < stop) {
                if (n + 1 < cap) scratch[n++] = (char)s->block[s->pos];
                else overlong = true;
                ++s->pos;
            }
            break;
        }
    }
    scratch[n] = 0;
    // Re-check the gathered text against the grammar; what does not fit fails.
    const unsigned char* g = (const unsigned char*)scratch;
    if (number_end(g, is_float) != g + n || overlong) s->state |= FS_FAIL;
    *b = scratch;
    *e = scratch + n;
    return !(s->state & FS_FAIL);
}

// Converts a whole token known to fit the integer grammar; false (and FS_FAIL) when it
// has no digits or does not fit 32 bits, as a standard stream fails.
static bool convert_int(FileStream* s, const char* p, const char* end, int32_t* out) {
    bool negative = p < end && *p == '-';
    if (p < end && *p == '+') ++p;
    int32_t v = 0;
    auto r = std::from_chars(p, end, v);
    if (r.ec == std::errc::result_out_of_range) {
        s->state |= FS_FAIL;
        *out = negative ? INT32_MIN : INT32_MAX;
        return false;
    }
    if (p == end || r.ec != std::errc() || r.ptr != end) {
        s->state |= FS_FAIL;
        return false;
    }
    *out = v;
    return true;
}

bool fs_read_int(FileStream* s, int32_t* out) {
    *out = 0;
    if (!fs_skip_space(s)) return false;
    // Fast path: a token of at most 18 digits that ends inside the buffered window.
    const unsigned char* p = s->block + s->pos;
    const unsigned char* q = p;
    bool negative = *q == '-';
    if (*q == '+' || *q == '-') ++q;
    const unsigned char* digits = q;
    uint64_t v = 0;
    while (is_digit(*q) && q - digits < 18) v = v * 10 + (uint64_t)(*q++ - '0');
    size_t stop = (size_t)(q - s->block);
    if (!is_digit(*q) && (stop < s->len || s->drained)) {
        s->pos = stop;
        if (stop >= s->len) s->state |= FS_EOF;
        if (q == digits || v > (negative ? 2147483648ull : 2147483647ull)) {
            s->state |= FS_FAIL;
            if (q != digits) *out = negative ? INT32_MIN : INT32_MAX;
            return false;
        }
        *out = negative ? (int32_t)(0 - v) : (int32_t)v;
        return true;
    }
    char scratch[512];
    const char *b, *e;
    if (!take_number(s, false, scratch, sizeof scratch, &b, &e)) return false;
    return convert_int(s, b, e, out);
}

// Exact powers of ten as doubles.
static const double kPow10[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// m x 10^scale as a float, exactly, where one double operation gets it: at most 15
// significant digits and a power of ten up to 22 give one correctly rounded double; rounding
// that to float is then correct unless the double sits exactly on a midpoint between two
// floats (or the result is not a normal float), which is left to the general conversion.
static bool exact_float(uint64_t m, int sig, int scale, bool negative, float* out) {
    if (sig > 15) return false;
    if (m == 0) {
        *out = negative ? -0.0f : 0.0f;
        return true;
    }
    if (scale < -22 || scale > 22) return false;
    double d = scale >= 0 ? (double)m * kPow10[scale] : (double)m / kPow10[-scale];
    if (d < 1.17549435e-38 || d > 3.40282347e+38) return false;
    uint64_t bits;
    memcpy(&bits, &d, sizeof bits);
    if ((bits & 0x1FFFFFFFull) == 0x10000000ull) return false;
    *out = negative ? -(float)d : (float)d;
    return true;
}

// The common short decimal of a whole token [p, end), converted exactly (exact_float).
static bool quick_float(const char* p, const char* end, float* out) {
    bool negative = false;
    if (p < end && (*p == '+' || *p == '-')) negative = *p++ == '-';
    uint64_t m = 0;
    int sig = 0, scale = 0;
    bool any = false;
    for (; p < end && is_digit((unsigned char)*p); ++p, any = true)
        if (m || *p != '0') m = m * 10 + (uint64_t)(*p - '0'), ++sig;
    if (p < end && *p == '.')
        for (++p; p < end && is_digit((unsigned char)*p); ++p, any = true) {
            if (m || *p != '0') m = m * 10 + (uint64_t)(*p - '0'), ++sig;
            --scale;
        }
    if (!any) return false;
    if (p < end) {  // exponent
        ++p;
        bool eneg = false;
        if (p < end && (*p == '+' || *p == '-')) eneg = *p++ == '-';
        int e = 0, n = 0;
        for (; p < end && is_digit((unsigned char)*p); ++p, ++n)
            if (n < 4) e = e * 10 + (*p - '0');  // longer exponents go to the general conversion
        if (n == 0 || n > 4) return false;
        scale += eneg ? -e : e;
    }
    return exact_float(m, sig, scale, negative, out);
}

// The same for a token without an exponent, scanned and converted in one pass: the end of
// the token, or null when it is not such a token or needs the general conversion. A token of
// at most 15 digits has at most 15 significant ones; a longer one (rare in the data files)
// takes the general conversion, which counts them.
static const unsigned char* one_pass_float(const unsigned char* p, float* out) {
    bool negative = *p == '-';
    if (*p == '+' || *p == '-') ++p;
    uint64_t m = 0;
    int scale = 0;
    const unsigned char* first = p;
    for (; is_digit(*p); ++p) m = m * 10 + (uint64_t)(*p - '0');
    int digits = (int)(p - first);
    if (*p == '.') {
        const unsigned char* f = ++p;
        for (; is_digit(*p); ++p) m = m * 10 + (uint64_t)(*p - '0');
        scale = -(int)(p - f);
        digits -= scale;
        if (digits == 0) return nullptr;  // "." alone
    } else if (digits == 0) {
        return nullptr;
    }
    if (*p == 'e' || *p == 'E' || digits > 15) return nullptr;
    return exact_float(m, digits, scale, negative, out) ? p : nullptr;
}

bool fs_read_float(FileStream* s, float* out) {
    *out = 0;
    if (!fs_skip_space(s)) return false;
    // Fast path: scan and convert in one pass when the token ends inside the window.
    const unsigned char* p0 = s->block + s->pos;
    if (const unsigned char* q = one_pass_float(p0, out)) {
        size_t stop = (size_t)(q - s->block);
        if (stop < s->len || s->drained) {
            s->pos = stop;
            if (stop >= s->len) s->state |= FS_EOF;
            return true;
        }
    }
    const unsigned char* q = number_end(p0, true);
    size_t stop = (size_t)(q - s->block);
    if (stop < s->len || s->drained) {
        if (quick_float((const char*)p0, (const char*)q, out)) {
            s->pos = stop;
            if (stop >= s->len) s->state |= FS_EOF;
            return true;
        }
    }
    char scratch[512];
    const char *p, *end;
    if (!take_number(s, true, scratch, sizeof scratch, &p, &end)) return false;
    if (quick_float(p, end, out)) return true;
    if (p < end && *p == '+') ++p;
    float v = 0;
    auto r = std::from_chars(p, end, v);
    if (p == end || r.ptr != end || (r.ec != std::errc() && r.ec != std::errc::result_out_of_range)) {
        s->state |= FS_FAIL;
        return false;
    }
    if (r.ec == std::errc::result_out_of_range) {
        // Too large fails with the largest value; too small is a plain (tiny) number.
        char text[512];
        size_t n = (size_t)(end - p) < sizeof text - 1 ? (size_t)(end - p) : sizeof text - 1;
        memcpy(text, p, n);
        text[n] = 0;
        float w = strtof(text, nullptr);
        if (w == HUGE_VALF || w == -HUGE_VALF) {
            s->state |= FS_FAIL;
            *out = w > 0 ? 3.40282347e+38f : -3.40282347e+38f;
            return false;
        }
        v = w;
    }
    *out = v;
    return true;
}

bool fs_read_char(FileStream* s, char* out) {
    if (!fs_skip_space(s)) return false;
    int c = take(s);
    *out = (char)c;
    return true;
}

// A token's integer value without an exponent or a sign past 18 digits: its end, or null.
static const unsigned char* one_pass_int(const unsigned char* p, int32_t* out) {
    bool negative = *p == '-';
    if (*p == '+' || *p == '-') ++p;
    const unsigned char* digits = p;
    uint64_t v = 0;
    while (is_digit(*p) && p - digits < 18) v = v * 10 + (uint64_t)(*p++ - '0');
    if (p == digits || is_digit(*p) || v > (negative ? 2147483648ull : 2147483647ull)) return nullptr;
    *out = negative ? (int32_t)(0 - v) : (int32_t)v;
    return p;
}

bool fs_read_fields(FileStream* s, const char* kinds, void* const out[]) {
    if (s->state) return false;
    fill(s, FS_FIELDS_VIEW);
    const unsigned char* p = s->block + s->pos;
    const unsigned char* end = s->block + s->len;
    for (int k = 0; kinds[k]; ++k) {
        while (is_space(*p)) ++p;
        if (p >= end) return false;  // the data ends, or more is to be read: the field reads decide
        if (kinds[k] == 'c') {
            *(char*)out[k] = (char)*p++;
            continue;
        }
        p = kinds[k] == 'f' ? one_pass_float(p, (float*)out[k]) : one_pass_int(p, (int32_t*)out[k]);
        if (!p || p >= end) return false;
    }
    s->pos = (size_t)(p - s->block);
    return true;
}
