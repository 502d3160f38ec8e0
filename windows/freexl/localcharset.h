/* FreeXL asks for the character set of the system only to convert from UTF-8 to UTF-8. */
#ifndef FREEXL_LOCALCHARSET_H
#define FREEXL_LOCALCHARSET_H
#define locale_charset() "UTF-8"
#endif
