/** @file
 *  Whole files in, whole files out.
 *
 *  Paths are what the system takes: bytes up to a NUL. What the system refuses is a value of errno,
 *  which is never 0 and never negative. */
#ifndef VO_VO_FILE_H
#define VO_VO_FILE_H

#include "vo/vo_buffer.h"

VO_BEGIN_DECLS

/** Reads a file, a device or a pipe up to its end. Null when that fails; then the errno value is
 *  stored in `error`, which is left alone otherwise. A file that is larger than the memory there is
 *  fails with ENOMEM. */
VO_NEW voBuffer *voFileTryRead(const char *path, int *error);

/** The same for a file that is open under this number, such as standard input (0): reads from where
 *  it stands to its end and leaves it open. */
VO_NEW voBuffer *voFileTryReadDescriptor(int descriptor, int *error);

/** Puts a file with these contents in the place of the one at `path`, if there is one: at every
 *  moment the old file is there as a whole, or the new one. The new one is written beside the old,
 *  flushed to the disk and renamed; when that fails, nothing has changed.
 *
 *  A file that exists keeps its permissions, owner and group as far as the caller may set them;
 *  rights of an owner or a group that cannot be kept are not given to another one. As with every
 *  renaming it is the folder that must be writable. A symbolic link stays; the file that it leads
 *  to is replaced. Anything that is not a regular file, such as a device, is written to directly.
 *  A process that is killed meanwhile leaves a file `.voxml-...` there, which may be removed.
 *
 *  @return 0, or the errno value of what went wrong. */
VO_API int voFileReplace(const char *path, voBuffer *contents);

/** What an errno value means, in the words of the system. */
VO_NEW voString *voFileErrorText(int error);

VO_END_DECLS

#endif
