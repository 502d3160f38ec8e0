#include "iconv.h"

#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <windows.h>

/* Not a code page of MultiByteToWideChar: what it converts to. */
#define UTF16 1200

iconv_t iconv_open(const char* to, const char* from) {
    UINT page = 0;
    (void)to;
    if (strcmp(from, "UTF-16LE") == 0) page = UTF16;
    if (strcmp(from, "UTF-8") == 0) page = CP_UTF8;
    if (strcmp(from, "ASCII") == 0) page = 20127;
    if (strcmp(from, "MacRoman") == 0) page = 10000;
    if (strncmp(from, "CP", 2) == 0) page = (UINT)atoi(from + 2);
    return page == UTF16 || (page != 0 && IsValidCodePage(page)) ? (iconv_t)(uintptr_t)page
                                                                 : (iconv_t)-1;
}

size_t iconv(iconv_t converter, char** in, size_t* in_left, char** out, size_t* out_left) {
    const UINT page = (UINT)(uintptr_t)converter;
    /* No character of a code page becomes more than two units. */
    wchar_t* wide = malloc((*in_left + 1) * 2 * sizeof(wchar_t));
    int units = 0;
    int bytes = 0;
    if (wide && page == UTF16) {
        units = (int)(*in_left / 2);
        memcpy(wide, *in, (size_t)units * 2);
    } else if (wide) {
        units = MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, *in, (int)*in_left, wide,
                                    (int)(*in_left + 1) * 2);
    }
    if (units > 0)
        bytes = WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, wide, units, *out,
                                    (int)*out_left, NULL, NULL);
    free(wide);
    if (bytes == 0 && *in_left > 0) return (size_t)-1;
    *in += *in_left;
    *in_left = 0;
    *out += bytes;
    *out_left -= (size_t)bytes;
    return 0;
}

int iconv_close(iconv_t converter) {
    (void)converter;
    return 0;
}
