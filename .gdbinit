# `step` on a one-line forwarder lands in the operation behind it, not in the object frame.
skip -gfi */source/vo/vo_object.hpp
# Pointers to objects are shown as the XML that they stand for.
source gdb/printers.py
