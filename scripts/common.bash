# Shared by the scripts beside it: where the project is, and how a step is run and reported.
# Sourced, never run.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
mkdir -p build
jobs=$(nproc)

# Compiled files are the same in every checkout, so they are remembered without the checkout's path.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1

# quietly NAME COMMAND...: runs the command and shows its output only if it fails.
quietly() {
  local name=$1 log=build/$1.log
  shift
  if ! "$@" > "$log" 2>&1 < /dev/null; then
    tail -n 200 "$log" >&2
    echo "Failed: $name (the whole output is in $log)" >&2
    return 1
  fi
}

# build PRESET [CMAKE-OPTION...]: configures and builds build/PRESET.
build() {
  build_target "$1" all "${@:2}"
}

# build_target PRESET TARGETS [CMAKE-OPTION...]: the same for some targets, with blanks between them.
build_target() {
  quietly "configure-$1" cmake --preset "$1" "${@:3}" || return 1
  quietly "build-$1" cmake --build "build/$1" --parallel "$jobs" --target $2
}
