# Shares of instructions by part of the program, from callgrind's output without compression.
# What the plug-in's library holds counts as the plug-in; the program's own functions count by
# their source folder; what the standard library and the system's libraries do is one more part.
function part() {
    if (object ~ /plyweld\.so/) return "plug-in"
    if (file ~ /\/host\/(score|callbacks)\//) return "host"
    if (file ~ /\/host\/musicxml\// || object ~ /pugixml|libzip|libz\./) return "MusicXML"
    if (file ~ /\/host\/cli\//) return "command"
    return "libraries"
}
/^ob=/ { object = substr($0, 4); next }
/^fl=/ { file = substr($0, 4); next }
/^calls=/ { skip = 1; next }
/^[0-9]/ {
    if (skip) { skip = 0; next }
    cost[part()] += $2
    total += $2
}
END {
    for (name in cost) printf "%5.1f %%  %s\n", 100 * cost[name] / total, name | "sort -rn"
    close("sort -rn")
    printf "%.0f million instructions\n", total / 1e6
}
