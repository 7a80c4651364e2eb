# `step` on a one-line forwarder lands in the operation behind it, not in the object frame.
skip -gfi */source/vo/vo_object.hpp
