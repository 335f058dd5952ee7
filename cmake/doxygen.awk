# Shows a public header to Doxygen as a reader understands it. Two things there have no comment of their own, as it would
# say the same each time: a property's setter, and each code of the catalogue, whose row already says what it means.

# A row of the catalogue: CODE(constant, "code", "tag", "tag", "meaning")
match($0, /^ *CODE\([A-Za-z]+, /) {
    split($0, field, "\"")
    constant = $0
    sub(/^ *CODE\(/, "", constant)
    sub(/,.*/, "", constant)
    declarations[++rows] = "/** " field[8] " Tag " field[4] " in the two-digit format, tag " field[6] \
        " in the one-character format. */ inline constexpr std::string_view " constant " = \"" field[2] "\";"
}

# Where the header makes the constants of the rows. Everything stays on this line, to keep the numbers of the others.
$0 == "KORVO_ERROR_CATALOGUE(KORVO_CODE)" {
    for (row = 1; row <= rows; ++row) {
        printf "%s ", declarations[row]
    }
    print ""
    next
}

# A setter right behind its documented getter
getter != "" && /^    void set[A-Z]/ {
    print "    /** Sets " getter "(). */" $0
    getter = ""
    next
}

{
    getter = ""
    if (match($0, /[A-Za-z0-9]+\(\) const noexcept;$/)) {
        getter = substr($0, RSTART, RLENGTH - length("() const noexcept;"))
    }
    print
}
