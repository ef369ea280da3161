# The tree reader written as a user might write it in awk: the hierarchy into a parent
# map (item number to parent item number) and one record per schematic name, then the
# file list into each record's symbols. Prints the counts, so that nothing is skipped.
BEGIN { section = "preamble"; items = 0 }

section == "preamble" {
    if (substr($0, 1, 1) == "~") {
        name = $2
        path = $0; sub(/^[^(]*\(/, "", path); sub(/\).*$/, "", path)
        top = ++items; parent[top] = 0
        record[tolower(name)] = path
        depth = 0; last[0] = top
        section = "hierarchy"
    }
    next
}

section == "hierarchy" {
    level = $1 + 0
    if (NF == 0 || level <= 0) { section = "files"; next }
    # Deeper lines hang on the last item of the level above; a jump takes the deepest.
    up = level - 1
    while (up > depth) up--
    line = substr($0, 4); sub(/^[. ]*/, "", line)
    split(line, part, /[ ]+\(|[ ]+<->[ ]+|\)/)
    item = ++items; parent[item] = last[up]
    last[level] = item; depth = level
    key = tolower(part[1])
    gsub(/\//, "\\", part[3])
    if (!(key in record)) record[key] = part[3]
    next
}

section == "files" {
    if ($1 == "Schematic:") {
        path = $0; sub(/^Schematic:[ ]*/, "", path); sub(/ [^ ]*$/, "", path)
        file = path; sub(/^.*[\\\/]/, "", file); sub(/\..*$/, "", file)
        current = tolower(file)
        blocks++
    } else if ($1 == "Symbol:") {
        symbol = $2; gsub(/\//, "\\", symbol)
        if (current in record) symbols[current] = symbols[current] "\n" symbol
        symbolLines++
    }
}

END { printf "%d items, %d blocks, %d symbols\n", items, blocks, symbolLines }
