# What the benchmark scripts share: where lumaro is, and the folder a run
# works in. Sourced with `root` set to the repository.
#
# With PREPARE_ONLY=DIR set, a script only makes its POS database, settings
# and files in DIR, so that a timing tool can run lumaro itself on copies of
# it; otherwise it works in a temporary folder removed at the end.
lumaro="$root/build/bin/lumaro"
if [ -n "${PREPARE_ONLY:-}" ]; then
  work="$PREPARE_ONLY"
  mkdir -p "$work"
else
  work="$(mktemp -d)"
  trap 'rm -rf "$work"' EXIT
fi
cd "$work"
