// Byte order of the files, which is little-endian, against that of the machine.
#include "host_prive.h"

#include <endian.h>

HOST_DEFAULT UNSIGNED_INT2 pc2uxint2(UNSIGNED_INT2 v) {
    return le16toh(v);
}

HOST_DEFAULT UNSIGNED_INT4 pc2uxint4(UNSIGNED_INT4 v) {
    return le32toh(v);
}

HOST_DEFAULT UNSIGNED_INT2 ux2pcint2(UNSIGNED_INT2 v) {
    return htole16(v);
}

HOST_DEFAULT UNSIGNED_INT4 ux2pcint4(UNSIGNED_INT4 v) {
    return htole32(v);
}
