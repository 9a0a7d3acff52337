# Makes a bulletin for boards of a guide: lines of at most 79 characters that end in CR and LF, plain
# or with ANSI colours. It knows the Markdown that the caller's guide uses: headings, paragraphs,
# lists, indented code, and `code`, **strong** and *emphasis* that do not contain each other.
#
#   awk -v colours=0 -f bulletin.awk GUIDE.md >GUIDE.asc
#   awk -v colours=1 -f bulletin.awk GUIDE.md >GUIDE.ans

function painted(colour, text) {
    return colours ? "\033[" colour "m" text "\033[0m" : text
}

# Every second piece of the text between such marks is painted, in the plain bulletin quoted.
function withMarks(text, mark, colour, quote, pieces, count, i, result) {
    count = split(text, pieces, mark)
    for (i = 1; i <= count; ++i) {
        result = result (i % 2 ? pieces[i] : painted(colour, quote pieces[i] quote))
    }
    return result
}

function width(text) {
    gsub(/\033\[[0-9;]*m/, "", text)
    return length(text)
}

# Prints the paragraph or the point of a list that was read, behind its lead.
function flush(words, count, i, line, indent) {
    text = withMarks(text, "`", "1;37", colours ? "" : "\"")
    text = withMarks(text, "[*][*]", "1;33", "")
    text = withMarks(text, "[*]", "36", "")
    count = split(text, words, " ")
    line = painted("31", lead)
    indent = lead
    gsub(/./, " ", indent)
    for (i = 1; i <= count; ++i) {
        if (i > 1 && width(line " " words[i]) > 79) {
            print line
            line = indent words[i]
        } else {
            line = line (i > 1 ? " " : "") words[i]
        }
    }
    if (count) {
        print line
    }
    text = lead = ""
}

# Code is a screen of the game: its keys and the names of its values have the game's colours.
function printScreen(line) {
    if (colours && match(line, /^ *[A-Z0-9]\)/)) {
        print painted("31", substr(line, 1, RLENGTH - 1)) painted("1;31", ")") \
            painted("1;37", substr(line, RLENGTH + 1))
    } else if (colours && (match(line, /^[^:]*:/))) {
        print painted("31", substr(line, 1, RLENGTH - 1)) painted("1;31", ":") \
            painted("1;37", substr(line, RLENGTH + 1))
    } else {
        print painted("1;37", line)
    }
}

BEGIN { ORS = "\r\n" }

/^#+ / {
    flush()
    sub(/^#+ /, "")
    rule = $0
    gsub(/./, "-", rule)
    print painted("1;31", $0)
    print painted("1;37", rule)
    next
}

/^$/ { flush(); print ""; next }

/^    / && text == "" { printScreen($0); next }

/^ *- / {
    flush()
    match($0, /^ *- /)
    lead = substr($0, 1, RLENGTH)
    text = substr($0, RLENGTH + 1)
    next
}

{ text = text " " $0 }

END { flush() }
