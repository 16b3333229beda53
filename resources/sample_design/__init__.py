"""The design of the sample typeface, one subject per module."""
