# What README.md says about installing; scripts/check_package.sh runs it in a copy of the sources.
set -eu
# snippet: install
cmake --preset install
cmake --build --preset install
cmake --install build/install --prefix ~/tovikxml
# end snippet
