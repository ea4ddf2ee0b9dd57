"""Private services for tests and the demonstration: each on loopback or a private socket, each ended by process id."""
