/* Compiled as C99 with -pedantic: the public headers must stay plain C. */
#include <bacfmt/bacfmt.h>

int bacfmt_c_header_probe(void)
{
    BACnetContents record = {CT_REAL, 1, 0, 0, {0, 0}};
    BACnetErrorInfo error = {0, 1, 2};
    ObjPropDescription row = {75, CT_OBJECT_ID, OBJPROP_SHAPE(0, 8), 1, 0};
    return (int)(record.type + error.errorCode + OBJPROP_ELEMENT_SIZE(row.shape));
}
