"""What people are told about each workload, and the order in which its tasks are shown."""

TITLES = {
    "W1": "1,000,000 records of 7 numbers (35 bytes)",
    "W2": "200,000 records with texts, a nested record, 16 samples and an enumeration",
    "W3": "one member of all structures of an array, to or from a block of numbers",
    "W4": "an array of 10,000,000 reals as one record",
    "W5": "one 32-bit member of a record of ten",
    "W6": "a file that holds one array of 1,000,000 structures of 35 bytes",
    "W7": "a script's access to one member (under Wine)",
}

# The order in which a workload's tasks are shown; a task that is not named comes last.
TASKS = [
    "write",
    "write, one call a record",
    "read",
    "then depth to Real",
    "depth to Real of 1000000",
    "x to Real of 1000000",
    "flags to Long of 1000000",
    "Real to depth of 1000000",
    "depth to Real of 1000",
    "x to Real of 1000",
    "flags to Long of 1000",
    "Real to depth of 1000",
    "put by position",
    "get by position",
    "put by name",
    "get by name",
    "put",
    "get",
]

# Participants that are hand-written code.
OTHER_LIMITS = ["limit", "read into used memory, then copied"]

# What one unit of work is, for the column of nanoseconds.
UNITS = {"W1": "record", "W2": "record", "W3": "number", "W4": "number", "W5": "call", "W6": "structure", "W7": "call"}

LIMITS = {
    "W1": "the packed struct through a buffer of 64 KB, or one bare write a record",
    "W2": "records put together by hand, through a buffer of 64 KB, or one bare write a record",
    "W3": "a loop over packed structs",
    "W4": "one memcpy into memory that was used before, and one read or write",
    "W5": "a store or load at an offset; by name, a look-up in an unordered_map before it",
    "W6": "a copy of the block into new memory, without any file; a loop over packed structs",
    "W7": "the same script with a Scripting.Dictionary",
}

# Beyond these multiples of the limit something has gone wrong with the library's speed, even
# on a busy machine: about twice what docs/performance.md holds.
BOUNDS = {
    ("W1", "write"): 10,
    ("W1", "read"): 28,
    ("W2", "write"): 17,
    ("W2", "write, one call a record"): 4.2,
    ("W2", "read"): 60,
    ("W3", "depth to Real of 1000000"): 2.2,
    ("W3", "x to Real of 1000000"): 2.2,
    ("W3", "flags to Long of 1000000"): 2.2,
    ("W3", "Real to depth of 1000000"): 2.2,
    ("W3", "depth to Real of 1000"): 5,
    ("W3", "x to Real of 1000"): 5,
    ("W3", "flags to Long of 1000"): 5,
    ("W3", "Real to depth of 1000"): 5,
    ("W5", "put by position"): 22,
    ("W5", "get by position"): 22,
    ("W5", "put by name"): 4,
    ("W5", "get by name"): 4,
    ("W6", "read"): 3,
    ("W6", "then depth to Real"): 2.2,
}

# What the library aims at: a multiple of the limit, or so many nanoseconds a unit.
AIMS = {
    ("W1", "write"): (2.5, "ratio"),
    ("W1", "write, one call a record"): (1.2, "ratio"),
    ("W1", "read"): (10, "ratio"),
    ("W2", "write"): (4, "ratio"),
    ("W2", "read"): (8, "ratio"),
    ("W3", "depth to Real of 1000000"): (1.1, "ratio"),
    ("W3", "x to Real of 1000000"): (1.1, "ratio"),
    ("W3", "flags to Long of 1000000"): (1.1, "ratio"),
    ("W3", "Real to depth of 1000000"): (1.1, "ratio"),
    ("W3", "depth to Real of 1000"): (1.5, "ratio"),
    ("W3", "x to Real of 1000"): (1.5, "ratio"),
    ("W3", "flags to Long of 1000"): (1.5, "ratio"),
    ("W3", "Real to depth of 1000"): (1.5, "ratio"),
    ("W4", "write"): (1.2, "ratio"),
    ("W4", "read"): (1.5, "ratio"),
    ("W5", "put by position"): (6, "ns"),
    ("W5", "get by position"): (6, "ns"),
    ("W5", "put by name"): (19, "ns"),
    ("W5", "get by name"): (19, "ns"),
    ("W6", "read"): (1.5, "ratio"),
    ("W6", "then depth to Real"): (1.1, "ratio"),
    ("W7", "put"): (1.0, "ratio"),
    ("W7", "get"): (1.0, "ratio"),
}
