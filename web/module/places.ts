import type { Explanation } from "./explanation.js";

interface Place {
    offset: number;
    byteOffset: number;
}

function placesIn({ elements, fault, repairs, unverified }: Explanation): Place[] {
    return [
        ...elements.flatMap((element) => [element, ...(element.elements ?? [])]),
        ...(fault ? [fault] : []),
        ...[...repairs, ...unverified].flatMap((repair) => repair.edits),
    ];
}

/** Adds the byte offsets to what the library's JSON says. Repairs share most places, and each is looked for once. */
export function withByteOffsets(explanation: Explanation, byteOffset: (offset: number) => number): Explanation {
    const known = new Map<number, number>();
    for (const place of placesIn(explanation)) {
        place.byteOffset = known.get(place.offset) ?? byteOffset(place.offset);
        known.set(place.offset, place.byteOffset);
    }
    return explanation;
}
