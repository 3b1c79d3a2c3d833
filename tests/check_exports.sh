#!/usr/bin/env bash
# The shared library exports only its C API: no C++ symbols, none of the
# internal helpers.
set -euo pipefail
lib=$1
symbols=$(nm -D --defined-only "$lib" | awk '{print $3}')
bad=$(echo "$symbols" | grep -E '^_Z|^(ParseElement|KillTrailLeadSpace|SimpleUtf8Encode|str_i_cmp|GuessValueType|tBACnetStringType|nStringCodepage|backupString)$' || true)
if [ -n "$bad" ]; then
  echo "exported but internal:"; echo "$bad"; exit 1
fi
for wanted in BACnetSPrintContents BACnetSScanContents BACnetStatusString SPrintReadInfo GetObjPropDescription utf8_encode UnknownString; do
  echo "$symbols" | grep -qx "$wanted" || { echo "missing export: $wanted"; exit 1; }
done
echo "exports ok: $(echo "$symbols" | wc -l) symbols"
