/// GNUstep asks a compiler with blocks for this header, which the plain GNU runtime does not have.
#include <Block.h>
