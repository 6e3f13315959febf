# Doxygen input filter: reads the public headers' plain comments as the reference text, so
# that the headers keep one comment style. What it takes as documentation:
# - the comment above `#pragma once` describes the namespace in the namespace's main header
#   (fio.h for FIO, config.h for brelt); in another header it heads a section of the
#   namespace's page over the header's declarations, or, where the header has sections of
#   its own, the header's page;
# - a comment right above a declaration (no blank line between) describes it and every
#   declaration that follows at the same indentation up to the next blank line or comment;
# - a comment that opens with "--- Title." starts a section of the namespace's (or class's)
#   page that runs to the next such comment or the end of the scope; its text after the title
#   describes the section, or, when a declaration follows at once, that declaration's run;
# - a comment behind a member (`Type name;  // text`) describes that member.
# Everything else passes unchanged. Usage: awk -f doc_comments.awk header.h

function indent_of(s) { match(s, /^[ \t]*/); return RLENGTH }

# Comment text as Doxygen text: backslashes and markers shown as written.
function escape(s) {
  gsub(/\\/, "&&", s)
  gsub(/@/, "\\@", s)
  gsub(/</, "\\<", s)
  gsub(/>/, "\\>", s)
  gsub(/#/, "\\#", s)
  gsub(/%/, "\\%", s)
  gsub(/\*\//, "* /", s)
  return s
}

function joined(n,    i, s) {
  s = ""
  for (i = 1; i <= n; i++) s = s (i > 1 ? " " : "") pending[i]
  return s
}

function close_section() {
  if (section_depth >= 0) print "///@}"
  section_depth = -1
}

# The pending comment opens a section: "--- Title. text" gives the title, and its text
# describes the section, or the declarations right below it when they follow at once.
function open_section(attached,    first, title, rest, i, text) {
  close_section()
  first = pending[1]
  sub(/^--- */, "", first)
  if (match(first, /[.;:]( |$)/)) {
    title = substr(first, 1, RSTART - 1)
    rest = substr(first, RSTART + RLENGTH)
  } else {
    title = first
    rest = ""
  }
  text = rest
  for (i = 2; i <= npending; i++) text = text (text == "" ? "" : " ") pending[i]
  print "/** @name " escape(title)
  if (text != "" && !attached) print " * " escape(text)
  print " */"
  print "///@{"
  section_depth = depth
  return text
}

# The header's comment as a section: its first sentence is the title, the rest describes it.
function open_file_section(    text, i, title, rest, n, rest_lines) {
  text = ""
  for (i = 1; i <= nfile; i++) text = text (i > 1 ? "\n" : "") file_doc[i]
  if (match(text, /\.( |\n|$)/)) {
    title = substr(text, 1, RSTART - 1)
    rest = substr(text, RSTART + RLENGTH)
  } else {
    title = text
    rest = ""
  }
  gsub(/\n/, " ", title)
  print "/** @name " escape(title)
  n = split(rest, rest_lines, "\n")
  for (i = 1; i <= n; i++) print " * " escape(rest_lines[i])
  print " */"
  print "///@{"
  section_depth = depth
  nfile = 0
}

BEGIN {
  header = 1; npending = 0; section_depth = -1; depth = 0; run_doc = ""; run_indent = -1
  nfile = 0
  has_sections = 0
  while ((getline text < ARGV[1]) > 0) if (text ~ /^[ \t]*\/\/ ---/) has_sections = 1
  close(ARGV[1])
}

# Until `#pragma once`: the header's own comment, kept for its namespace.
header {
  if ($0 ~ /^#pragma once/) {
    header = 0
    print
    next
  }
  if ($0 ~ /^\/\//) {
    line = $0
    sub(/^\/\/ ?/, "", line)
    file_doc[++nfile] = line
  }
  print
  next
}

# A comment line: collected until the line that shows what it belongs to.
/^[ \t]*\/\// {
  line = $0
  sub(/^[ \t]*\/\/ ?/, "", line)
  pending[++npending] = line
  print
  next
}

# A blank line ends a run; a comment standing alone is a section title or stays plain.
/^[ \t]*$/ {
  if (npending > 0 && pending[1] ~ /^--- /) open_section(0)
  npending = 0
  run_doc = ""
  run_indent = -1
  print
  next
}

/^[ \t]*#/ {
  npending = 0
  run_doc = ""
  print
  next
}

{
  line = $0
  ind = indent_of(line)
  opens = gsub(/{/, "{", line)
  closes = gsub(/}/, "}", line)

  # The end of a scope ends its section.
  if (line ~ /^[ \t]*}/ && section_depth >= 0 && depth - closes < section_depth) close_section()

  # The header's comment: the namespace's own text in the namespace's main header (fio.h for
  # FIO, config.h for brelt), else a section over the header's declarations or, where the
  # header has sections of its own, the text of the header's page.
  file_section = 0
  if (line ~ /^namespace [A-Za-z_]+ {/ && nfile > 0) {
    name = line
    sub(/^namespace /, "", name)
    sub(/ .*/, "", name)
    base = FILENAME
    sub(/.*\//, "", base)
    if (base == tolower(name) ".h" || name == "brelt") {
      print "/** @namespace " name
      for (i = 1; i <= nfile; i++) print " * " escape(file_doc[i])
      print " */"
    } else if (has_sections) {
      print "/** @file"
      for (i = 1; i <= nfile; i++) print " * " escape(file_doc[i])
      print " */"
    } else {
      file_section = 1
    }
  }

  if (npending > 0) {
    if (pending[1] ~ /^--- /) run_doc = open_section(1)
    else run_doc = joined(npending)
    run_indent = ind
    npending = 0
  } else if (ind < run_indent) {
    run_doc = ""
    run_indent = -1
  }

  # A member's own comment behind it.
  if (match(line, /[;,][ \t]+\/\/ /)) {
    line = substr(line, 1, RSTART + RLENGTH - 4) "///< " escape(substr(line, RSTART + RLENGTH))
  }

  starts = ind == run_indent && line !~ /^[ \t]*(}|static_assert)/ &&
           line !~ /^[ \t]*(public|private|protected):/
  if (starts && run_doc != "") line = substr(line, 1, ind) "/** " escape(run_doc) " */ " substr(line, ind + 1)
  print line
  depth += opens - closes
  if (file_section) open_file_section()
}

END { close_section() }
