# Prepares headers for Doxygen: the first comment is the file's; defaulted functions need no comment; neither
# does a setter of a documented property, because it only sets the property.
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
