/* What a plug-in is not to have: data that is written to, an address that is resolved when it is loaded, and a library.
 */
#include <math.h>

__attribute__((used)) static long counter = 1;

__attribute__((used)) static double (*volatile function)(double) = cbrt;
