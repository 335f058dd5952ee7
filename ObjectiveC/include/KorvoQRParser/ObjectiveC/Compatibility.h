#ifndef KORVOQRPARSER_OBJECTIVEC_COMPATIBILITY_H
#define KORVOQRPARSER_OBJECTIVEC_COMPATIBILITY_H

/// What compilers differ in, for the other headers here and not for callers. GCC reads neither nullability
/// nor generics, and has no blocks.

#import <Foundation/Foundation.h>

#if defined(__clang__)
#define KORVO_ARRAY_OF(Element) NSArray<Element>
#define KORVO_SWIFT_NAME(name) __attribute__((swift_name(#name)))
// Otherwise Swift would import the form with a handler as an asynchronous function of the other form's name.
#define KORVO_SWIFT_NOT_ASYNC __attribute__((swift_async(none)))
// Not NS_UNAVAILABLE, which GNUstep leaves empty.
#define KORVO_UNAVAILABLE __attribute__((unavailable))
#define KORVO_HAS_BLOCKS __has_feature(blocks)
#else
#ifndef _Nullable
#define _Nullable
#endif
#define KORVO_ARRAY_OF(Element) NSArray
#define KORVO_SWIFT_NAME(name)
#define KORVO_SWIFT_NOT_ASYNC
#define KORVO_UNAVAILABLE
#define KORVO_HAS_BLOCKS 0
#endif

#endif
