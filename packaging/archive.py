"""Zip files whose bytes depend on nothing but what is in them."""

import time
import zipfile


def moment(epoch):
    """The time as zip files keep it: in local time and steps of two seconds, so that of Greenwich is taken for local."""
    return time.gmtime(epoch)[:6]


def write_zip(path, files, epoch):
    """files: the bytes by their names, with slashes."""
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name in sorted(files):
            entry = zipfile.ZipInfo(name, moment(epoch))
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            archive.writestr(entry, files[name])
