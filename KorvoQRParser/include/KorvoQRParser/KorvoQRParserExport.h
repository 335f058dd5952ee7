#ifndef KORVOQRPARSER_KORVOQRPARSEREXPORT_H
#define KORVOQRPARSER_KORVOQRPARSEREXPORT_H

/// Marks what the shared library shows to the outside; everything else is built with hidden visibility.
#if defined(__GNUC__)
#define KORVO_EXPORT __attribute__((visibility("default")))
#else
#define KORVO_EXPORT
#endif

#endif
