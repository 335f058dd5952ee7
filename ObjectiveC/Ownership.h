#ifndef KORVOQRPARSER_OBJECTIVEC_OWNERSHIP_H
#define KORVOQRPARSER_OBJECTIVEC_OWNERSHIP_H

/// The sources are right under manual retain and release, which is all that the GNU runtime has, and under
/// automatic reference counting, where the compiler itself does what these macros spell out.

#if __has_feature(objc_arc)
#define KORVO_RETAIN(object) (object)
#define KORVO_RELEASE(object) ((void)0)
#define KORVO_AUTORELEASE(object) (object)
#define KORVO_SUPER_DEALLOC ((void)0)
#else
#define KORVO_RETAIN(object) [(object) retain]
#define KORVO_RELEASE(object) [(object) release]
#define KORVO_AUTORELEASE(object) [(object) autorelease]
#define KORVO_SUPER_DEALLOC [super dealloc]
#endif

#endif
