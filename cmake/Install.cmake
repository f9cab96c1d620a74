# Placeholder of the install rules: headers, targets and the exported package.
