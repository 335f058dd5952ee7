# Says whom to pay, or why the payload is refused. Usage: python3 pay.py PAYLOAD
import ctypes
import json
import os
import sys

korvoqr = ctypes.CDLL("libKorvoQRParser.so.1")


def ask(make, getter, free, payload):
    """The JSON that a getter has about a payload; None when there is none."""
    make, getter, free = korvoqr[make], korvoqr[getter], korvoqr[free]
    make.argtypes, make.restype = [ctypes.c_char_p, ctypes.c_size_t], ctypes.c_void_p
    getter.argtypes, getter.restype = [ctypes.c_void_p, ctypes.c_void_p], ctypes.c_char_p
    free.argtypes, free.restype = [ctypes.c_void_p], None
    handle = make(payload, len(payload))
    text = getter(handle, None)
    free(handle)
    return text and json.loads(text)


payload = os.fsencode(sys.argv[1] if len(sys.argv) > 1 else "")
record = ask("korvoqr_parse", "korvoqr_response_json", "korvoqr_response_free", payload)
if record:
    print("Pay", record["transactionAmount"] or "any amount", "to", record["merchantName"])
else:
    explanation = ask("korvoqr_explain", "korvoqr_explanation_json", "korvoqr_explanation_free", payload)
    sys.exit("Refused. " + explanation["causes"][0])
