"""The rows of docs/faults.md, a file for each kind of fault."""
