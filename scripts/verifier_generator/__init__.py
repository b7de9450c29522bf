"""Makes a verifier with sample and tests out of data files of good runs; see scripts/new-verifier --help."""
