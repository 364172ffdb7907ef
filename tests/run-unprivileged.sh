#!/bin/sh
# Runs a test binary as an ordinary user when started as root, so that file
# permission bits take effect as they do for a user.
if [ "$(id -u)" = 0 ] && command -v setpriv >/dev/null 2>&1; then
  exec setpriv --reuid=nobody --regid=nogroup --clear-groups \
    env HOME=/tmp TMPDIR=/tmp "$@"
fi
exec "$@"
