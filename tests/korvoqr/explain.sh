#!/usr/bin/env bash
source "$(dirname "$0")/common.sh"

# Explanations of faults of every kind, each as a person has read it
printf '%b' "$(< "$data/explained.payloads")" > payloads
for format in text json; do
    korvoqr explain --format $format -i payloads > explained || (($? == 1))
    diff "$data/explained.$format" explained
done

# The README shows the explanations of the sample, and of the sample with three faults.
sample=$(sed -n "s/^sample='\(.*\)'$/\1/p" "$root/scripts/run")
faulty=${sample/4123456784/4123456785}
faulty=${faulty/6006MUMBAI/}
for payload in "$sample" "$faulty"; do
    explanation=$(korvoqr explain "$payload") || (($? == 1))
    grep -qzF -e "$explanation" "$root/README.md"
done

# Each code of an answer is next to an element, or among the missing ones.
sed -n 's/^| "[1-9].* | `\([^`]*\)` |$/\1/p' "$root/docs/error-codes.md" > examples
(($(wc -l < examples) > 40))
korvoqr explain --format json -i examples > answers || (($? == 1))
jq -es 'all(.errorCodes != [] and (.errorCodes | unique) ==
    ([.absent[].code, (.elements[] | ., .elements[]? | .errors[].code)] | unique))' answers > explained

{ echo "$faulty"; sed -n '2p; 7p; /^0002015999/p; /^0002015920/p; /5912KORVO/p; /540650/p' payloads; } > some
printf '0a41234567841cKORVO\x1B[31m\xC2\x9B\U000E004124581236MUMBAI42IN53356' > hostile
replay explain
