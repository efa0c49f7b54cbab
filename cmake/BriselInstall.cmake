# Install rules and the package config.
