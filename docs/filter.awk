# What Doxygen reads of a header: the first comment is the file's own; what the compiler writes by itself needs no
# comment; and a setter of a documented property needs none either, because it only sets the property.
# And of a page: the public types that it names are links.
BEGIN {
  declared = "grep -rhoE '^(namespace quillonic(::[a-z_]+)?|(template <[^>]*> )?(class|struct|enum class|using|concept) (QUILLONIC_[A-Z]+ )?[A-Z][A-Za-z0-9_]+)' include"
  while ((declared | getline line) > 0) {
    isNamespace = line ~ /^namespace/
    sub(/.* /, "", line)
    if (isNamespace) space = line
    else types[line] = space
  }
}
FILENAME ~ /\.md$/ {
  rest = $0
  $0 = ""
  while (match(rest, /`[A-Z][A-Za-z0-9_]*(::[A-Za-z0-9_.]+(\(\))?)?`/)) {
    name = substr(rest, RSTART + 1, RLENGTH - 2)
    type = name
    sub(/::.*/, "", type)
    link = type in types ? "<code>\\ref " types[type] "::" type " \"" name "\"</code>" : "`" name "`"
    $0 = $0 substr(rest, 1, RSTART - 1) link
    rest = substr(rest, RSTART + RLENGTH)
  }
  print $0 rest
  next
}
{
  if ($0 == "#pragma once") $0 = "/// \\file"
  if ($0 ~ /^ .*\(.*\).* = default;/) $0 = ""
}
/^ .* set[A-Z][A-Za-z0-9_]*\(/ && previous !~ /^ *\/\/\// {
  match($0, / set[A-Z]/)
  name = substr($0, RSTART + 4)
  sub(/\(.*/, "", name)
  name = tolower(substr(name, 1, 1)) substr(name, 2)
  if (name in documented) print "  /// Sets `" name "`."
}
previous ~ /^ *\/\/\// && match($0, /[A-Za-z0-9_]+\(/) { documented[substr($0, RSTART, RLENGTH - 1)] }
{
  previous = $0
  print
}
