/** A rule that a payload violates. */
export interface Violation {
    /** The number of the code as text, such as "48". */
    code: string;
    /** The published name of the code, such as "crcInvalidValue". */
    name: string;
    /** One sentence in plain English. */
    meaning: string;
    /** What was found, and what the rule wants: "28 characters, at most 25". Empty if the meaning says it all. */
    fact: string;
}

/** A tag, a length and a value. */
export interface Element {
    /** The user-perceived characters before the element in the payload. */
    offset: number;
    /** The bytes before the element in the payload's UTF-8. */
    byteOffset: number;
    /** The tag as written, such as "59", or "a" in the one-character format. */
    tag: string;
    /** The length field as written. */
    length: string;
    /** The value as written. */
    value: string;
    /** What the tag is for, in a few words. */
    meaning: string;
    /** The rules that the element violates. */
    errors: Violation[];
    /** The elements inside tag 62. */
    elements?: Element[];
}

/** Why a payload cannot be split into elements: the first place where splitting fails. */
export interface Fault {
    /** The decoder's name for it. */
    error: string;
    /** The kind in plain words: "a length is wrong". */
    kind: string;
    /** The user-perceived characters before the fault. */
    offset: number;
    /** The bytes before the fault. */
    byteOffset: number;
    /** The tag concerned; empty if the fault is not about a tag. */
    tag: string;
    /** One sentence without a full stop. */
    reason: string;
    /** The piece of the payload before the fault. */
    before: string;
    /** The piece of the payload after the fault. */
    after: string;
}

/** The checksum that a payload has, and the one that it should have. */
export interface Checksum {
    found: string;
    computed: string;
    matches: boolean;
}

/** A change of the payload: at an offset, a text is replaced with another. */
export interface Edit {
    /** The user-perceived characters before the change in the original payload. */
    offset: number;
    /** The bytes before the change in the original payload's UTF-8. */
    byteOffset: number;
    from: string;
    to: string;
}

/**
 * A payload that the parser accepts, made from a refused one by changing its form. It is a guess about what the merchant
 * meant. Show it to a person, with its differences; no program should apply one by itself.
 */
export interface Repair {
    payload: string;
    /** In ascending order; they do not overlap. */
    edits: Edit[];
    /** What to check before anybody pays; null if the written checksum vouches for the repair. */
    caution: string | null;
}

/** All that is known about a payload. Its texts come from a stranger: escape them before you show them as markup. */
export interface Explanation {
    /** The text; bytes that are not UTF-8 become U+FFFD. */
    payload: string;
    /** If there are such bytes: the text with these as `\xHH`, and with doubled backslashes. */
    visible?: string;
    /** Null if the first two characters are missing or not UTF-8. */
    format: "two-digit" | "one-character" | null;
    accepted: boolean;
    /** The codes of the violated rules, such as "48". Empty for an accepted payload. */
    errorCodes: string[];
    /** In the order of the payload; those before the fault, if there is one. */
    elements: Element[];
    /** The violated rules about missing elements. */
    absent: Violation[];
    /** Only if the payload cannot be split. */
    fault?: Fault;
    /** Absent if the payload has none. */
    checksum?: Checksum;
    /** What probably happened, the likeliest first: sentences for a person. At least one for a refused payload. */
    causes: string[];
    /** The repairs that the written checksum vouches for, the likeliest first. */
    repairs: Repair[];
    /** All other repairs, the likeliest first. */
    unverified: Repair[];
}
