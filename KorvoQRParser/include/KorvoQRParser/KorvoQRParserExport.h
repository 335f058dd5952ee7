#ifndef KORVOQRPARSER_KORVOQRPARSEREXPORT_H
#define KORVOQRPARSER_KORVOQRPARSEREXPORT_H

/// Exports a declaration from the shared library. Everything else is built with hidden visibility.
#if defined(__GNUC__)
#define KORVO_EXPORT __attribute__((visibility("default")))
#else
#define KORVO_EXPORT
#endif

#endif
