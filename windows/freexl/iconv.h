/* What FreeXL needs of a converter of character sets, over what Windows has. */
#ifndef FREEXL_ICONV_H
#define FREEXL_ICONV_H

#include <stddef.h>

typedef void* iconv_t;

/* From a code page ("ASCII", "CP936", "UTF-16LE", "MacRoman") to UTF-8, to which alone FreeXL
   converts. Returns (iconv_t)-1 where Windows does not have it. */
iconv_t iconv_open(const char* to, const char* from);
/* Converts all of the input at once. Returns (size_t)-1, with nothing converted, where a character
   is none of the code page, or the room does not suffice. */
size_t iconv(iconv_t converter, char** in, size_t* in_left, char** out, size_t* out_left);
int iconv_close(iconv_t converter);

#endif
